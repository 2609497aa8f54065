#ifndef GRAMMARLINE_H
#define GRAMMARLINE_H

#include "grammar/rulesearch.h"
#include "grammar/scopelists.h"
#include "grammar/tokenbuilder.h"

#include <optional>

namespace Halvorin::TextMate {

/// What is known of the line that is being tokenised: where each expression was found last, and which rules
/// can still match. A search from further right need not be repeated while the hit lies ahead. Kept from line
/// to line, so that its memory is.
class SearchMemory
{
public:
    /// Forgets everything.
    void startLine(const QString& line)
    {
        ++m_line;
        m_units = UnitSet(line);
    }

    int find(const RuleExpression& expression, const QString& line, int from);

    /// The rules of a list that may match in this line. Who finds one that does not takes it out.
    std::vector<const ResolvedRule*>& candidates(const ResolvedRules& list);

private:
    struct Hit
    {
        unsigned line = 0;
        int from = 0;
        int start = 0;
    };

    struct Candidates
    {
        unsigned line = 0;
        std::vector<const ResolvedRule*> rules;
    };

    std::vector<Hit> m_hits;
    std::vector<Candidates> m_candidates;
    UnitSet m_units;
    unsigned m_line = 0;
};

/// A match of a rule that was found, not yet processed.
struct RuleMatch
{
    const ResolvedRule* rule;
    Match match;
};

/// A line on its way through the stack items: its text, the rules, and the tokens until now.
class GrammarLine
{
public:
    /// The text ends with a line end, as grammars expect it.
    GrammarLine(const QString& text, RuleSearch& search, SearchMemory& memory);

    int length() const { return m_text.size(); }
    RuleSearch& rules() { return m_search; }
    TokenBuilder& tokens() { return m_tokens; }
    QString captured(const Match& match, int group) const;

    /// Matches an expression at or behind a position. `anchor` is what \G speaks of, `beginCaptures` what the
    /// groups of "begin" captured.
    bool match(const RuleExpression& expression, int position, int anchor, const QStringList& beginCaptures,
               Match& match);

    /// The match with the lowest start at or behind a position; the first rule in the list of equal ones.
    std::optional<RuleMatch> bestMatch(const ResolvedRules& list, int position, int anchor);

    /// Adds a token for each group that matched and that the captures name.
    void addCaptures(const Match& match, const GrammarCaptures& captures, const QStringList& scopes,
                     ScopeLists& lists);

private:
    bool matchText(const AbstractGrammarExpression& expression, int position, int anchor,
                   const QStringList& beginCaptures, Match& match);

    QString m_text;
    RuleSearch& m_search;
    SearchMemory& m_memory;
    TokenBuilder m_tokens;
};

} // namespace Halvorin::TextMate

#endif
