#include "highlight/colouredruns.h"

#include <algorithm>

namespace {

/// Lays tokens over each other, from left to right: each token costs a few steps, however far it reaches.
class Layers
{
public:
    /// Adds the runs up to a column by what lies on top.
    void goTo(int column)
    {
        while (m_column < column) {
            while (!m_open.empty() && m_open.back().end <= m_column)
                m_open.pop_back();
            const bool isPlain = m_open.empty();
            const int end = isPlain ? column : std::min(column, m_open.back().end);
            add(end, isPlain ? nullptr : m_open.back().rule);
            m_column = end;
        }
    }

    void putOnTop(int end, const ColourRule* rule) { m_open.push_back({end, rule}); }

    std::vector<ColouredRun> take() { return std::move(m_runs); }

private:
    struct Layer
    {
        int end;
        const ColourRule* rule;
    };

    void add(int end, const ColourRule* rule)
    {
        if (!m_runs.empty() && m_runs.back().rule == rule)
            m_runs.back().end = end;
        else
            m_runs.push_back({m_column, end, rule});
    }

    std::vector<ColouredRun> m_runs;
    std::vector<Layer> m_open; ///< the last one is on top
    int m_column = 0;
};

} // namespace

std::vector<ColouredRun> colouredRuns(const std::vector<Halvorin::TextMate::Token>& tokens, int length,
                                      ColourScheme& scheme)
{
    Layers layers;
    for (const Halvorin::TextMate::Token& token : tokens) {
        layers.goTo(std::min(token.start, length));
        layers.putOnTop(token.start + token.length, scheme.rule(token.scopes));
    }
    layers.goTo(length);
    return layers.take();
}
