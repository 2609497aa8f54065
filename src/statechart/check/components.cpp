#include "statechart/check/components.h"

#include <algorithm>

namespace {

/// The algorithm of Tarjan, with a stack of its own.
class Components
{
public:
    explicit Components(const GraphEdges& edges)
        : m_edges(edges), m_number(edges.size()), m_lowest(edges.size()), m_isOpen(edges.size())
    {}

    std::vector<std::vector<std::size_t>> find()
    {
        for (std::size_t node = 0; node < m_edges.size(); ++node) {
            if (m_number[node] == 0)
                visitFrom(node);
        }
        return std::move(m_found);
    }

private:
    struct Visit
    {
        std::size_t node;
        std::size_t nextEdge = 0;
    };

    void visitFrom(std::size_t start)
    {
        std::vector<Visit> visits;
        const auto begin = [&](std::size_t node) {
            m_number[node] = m_lowest[node] = ++m_count;
            m_isOpen[node] = true;
            m_open.push_back(node);
            visits.push_back({node});
        };
        begin(start);
        while (!visits.empty()) {
            Visit& visit = visits.back();
            const std::size_t node = visit.node;
            if (visit.nextEdge < m_edges[node].size()) {
                const std::size_t target = m_edges[node][visit.nextEdge++];
                if (m_number[target] == 0)
                    begin(target);
                else if (m_isOpen[target])
                    m_lowest[node] = std::min(m_lowest[node], m_number[target]);
                continue;
            }
            visits.pop_back();
            if (!visits.empty())
                m_lowest[visits.back().node] = std::min(m_lowest[visits.back().node], m_lowest[node]);
            if (m_lowest[node] == m_number[node])
                close(node);
        }
    }

    void close(std::size_t node)
    {
        const auto first = std::find(m_open.rbegin(), m_open.rend(), node).base() - 1;
        std::vector<std::size_t> component(first, m_open.end());
        m_open.erase(first, m_open.end());
        for (const std::size_t each : component)
            m_isOpen[each] = false;
        const bool leadsToItself = std::ranges::find(m_edges[node], node) != m_edges[node].end();
        if (component.size() == 1 && !leadsToItself)
            return;
        std::ranges::sort(component);
        m_found.push_back(std::move(component));
    }

    const GraphEdges& m_edges;
    std::vector<std::size_t> m_number; // by node: when it was met, from 1
    std::vector<std::size_t> m_lowest;
    std::vector<bool> m_isOpen;
    std::vector<std::size_t> m_open;
    std::size_t m_count = 0;
    std::vector<std::vector<std::size_t>> m_found;
};

} // namespace

std::vector<std::vector<std::size_t>> componentsWithWaysRound(const GraphEdges& edges)
{
    return Components(edges).find();
}
