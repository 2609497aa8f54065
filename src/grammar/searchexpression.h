#ifndef SEARCHEXPRESSION_H
#define SEARCHEXPRESSION_H

#include <QString>
#include <memory>
#include <vector>

struct pcre2_real_code_16;

namespace Halvorin::TextMate {

/// Where an expression and its groups matched: two positions a group, -1 for one that took no part. Group 0
/// is the whole match.
class Match
{
public:
    explicit Match(std::vector<int> positions = {}) : m_positions(std::move(positions)) {}

    /// The number of the last group that took part.
    int lastCapturedIndex() const { return static_cast<int>(m_positions.size() / 2) - 1; }
    int capturedStart(int group) const { return m_positions[static_cast<std::size_t>(group) * 2]; }
    int capturedEnd(int group) const { return m_positions[static_cast<std::size_t>(group) * 2 + 1]; }
    int capturedLength(int group) const { return capturedEnd(group) - capturedStart(group); }

private:
    std::vector<int> m_positions;
};

/// A compiled regular expression that is searched for very often: what QRegularExpression matches, on the
/// same library and with the same options and limits, without its price for each call.
class SearchExpression
{
public:
    explicit SearchExpression(const QString& pattern);

    bool isValid() const { return m_code != nullptr; }

    /// Whether a hit behind a position is the hit of each search from there to it. It is not where the
    /// expression moves the start of its match, or steers the search.
    bool isRepeatable() const { return m_isRepeatable; }

    /// The start of the first match from a position on, -1 when there is none. A search that reaches the
    /// library's limits finds nothing, and says so in the log once an expression.
    int find(const QString& line, int from) const;

    /// The same with the groups.
    bool match(const QString& line, int from, Match& match) const;

private:
    struct Free
    {
        void operator()(pcre2_real_code_16* code) const;
    };

    int run(const QString& line, int from) const;

    QString m_pattern;
    std::unique_ptr<pcre2_real_code_16, Free> m_code;
    bool m_isRepeatable;
    mutable bool m_limitLogged = false;
};

} // namespace Halvorin::TextMate

#endif
