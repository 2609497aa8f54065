#ifndef SEARCHEXPRESSION_H
#define SEARCHEXPRESSION_H

#include <QString>
#include <algorithm>
#include <array>
#include <cstdint>
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

/// Which UTF-16 units a line has; all beyond 254 count as one, as PCRE2 counts them.
class UnitSet
{
public:
    UnitSet() = default;
    explicit UnitSet(const QString& line)
    {
        for (const QChar unit : line)
            insert(unit.unicode());
    }

    void insert(unsigned unit)
    {
        unit = std::min(unit, 255U);
        m_words[unit / 64] |= std::uint64_t{1} << unit % 64;
    }

    void insertAll() { m_words.fill(~std::uint64_t{0}); }

    bool intersects(const UnitSet& other) const
    {
        std::uint64_t common = 0;
        for (std::size_t word = 0; word < m_words.size(); ++word)
            common |= m_words[word] & other.m_words[word];
        return common != 0;
    }

private:
    std::array<std::uint64_t, 4> m_words{};
};

/// A compiled regular expression that is searched for very often: what QRegularExpression matches, on the
/// same library and with the same options and limits, without its price for each call.
class SearchExpression
{
public:
    explicit SearchExpression(const QString& pattern);

    bool isValid() const { return m_code != nullptr; }

    /// Whether a hit is the hit of each search from nearer to it, and a miss one of each search from behind.
    /// It is not where the expression steers the search, or speaks of where it starts.
    bool isRepeatable() const { return m_isRepeatable; }

    /// False when no line of these units has a match.
    bool canMatch(const UnitSet& units) const
    {
        return m_first.intersects(units) && m_required.intersects(units);
    }

    struct Hit
    {
        int start = -1;   ///< of the match; -1 when there is none
        int attempt = -1; ///< where the library began to match: \K moves the start behind it
        bool isGivenUp = false;
    };

    /// The first match from a position on. A search that reaches the library's limits is given up, which is
    /// said in the log once an expression. A start that the expression moved in front of the position is no
    /// match, nor is one that it moved behind its end.
    Hit find(const QString& line, int from) const;

    /// The same with the groups.
    bool match(const QString& line, int from, Match& match) const;

private:
    struct Free
    {
        void operator()(pcre2_real_code_16* code) const;
    };

    void prepare();
    int run(const QString& line, int from) const;

    QString m_pattern;
    std::unique_ptr<pcre2_real_code_16, Free> m_code;
    bool m_isRepeatable;
    bool m_isFast = false;      // whether there is machine code for it
    std::uint32_t m_groups = 0; // with that of the whole match
    UnitSet m_first;            // with one of which each match starts
    UnitSet m_required;         // one of which each match has
    mutable bool m_limitLogged = false;
};

} // namespace Halvorin::TextMate

#endif
