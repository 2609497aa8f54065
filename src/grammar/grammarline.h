#ifndef GRAMMARLINE_H
#define GRAMMARLINE_H

#include "grammar/rulesearch.h"
#include "grammar/tokenbuilder.h"

#include <optional>

namespace Halvorin::TextMate {

/// What a processor keeps from line to line, so that its memory is.
class LineMemory
{
public:
    unsigned nextNumber() { return ++m_number; }

    /// The rules of a list that may match in a line. Who finds one that does not takes it out.
    std::vector<const ResolvedRule*>& candidates(const ResolvedRules& list, const SearchedLine& line);

private:
    struct Candidates
    {
        unsigned line = 0;
        std::vector<const ResolvedRule*> rules;
    };

    std::vector<Candidates> m_candidates;
    unsigned m_number = 0;
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
    GrammarLine(const QString& text, RuleSearch& search, LineMemory& memory);

    int length() const { return m_line.text.size(); }
    RuleSearch& rules() { return m_search; }
    TokenBuilder& tokens() { return m_tokens; }
    QString captured(const Match& match, int group) const;

    /// Matches an expression at or behind a position. `anchor` is what \G speaks of.
    bool match(const PreparedExpression& expression, int position, int anchor, Match& match);

    /// The match with the lowest start at or behind a position; the first rule in the list of equal ones.
    /// @param mayOpen whether rules with "begin" are tried, too
    std::optional<RuleMatch> bestMatch(const ResolvedRules& list, int position, int anchor, bool mayOpen);

    /// Adds a token for each group that matched and that the captures name.
    void addCaptures(const Match& match, const GrammarCaptures& captures, const QStringList& scopes);

    /// Scopes and a name of the grammar, if there is one.
    const QStringList& scopesWith(const QStringList& scopes, const std::optional<QString>& name)
    {
        return name ? m_search.scopeLists().with(scopes, *name) : scopes;
    }

private:
    SearchedLine m_line;
    RuleSearch& m_search;
    LineMemory& m_memory;
    TokenBuilder m_tokens;
};

} // namespace Halvorin::TextMate

#endif
