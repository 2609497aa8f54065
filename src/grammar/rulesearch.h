#ifndef RULESEARCH_H
#define RULESEARCH_H

#include "grammar/grammar.h"
#include "grammar/lineexpression.h"
#include "grammar/scopelists.h"

#include <QHash>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

namespace Halvorin::TextMate {

/// Where the anchor lets an expression match.
enum class AnchorForm
{
    anywhere,
    atAnchor,  ///< \G alone
    elsewhere, ///< (?!\G) alone
};

/// An expression by its final text, ready to be searched for.
struct PreparedExpression
{
    std::shared_ptr<LineExpression> expression; ///< null where nothing matches
    AnchorForm form = AnchorForm::anywhere;

    bool isAllowed(int position, int anchor) const
    {
        return expression &&
               (form == AnchorForm::anywhere || (form == AnchorForm::atAnchor) == (position == anchor));
    }
};

/// A rule that matches by itself: one with "begin" or "match". Includes, and rules that only hold patterns,
/// have been replaced by what they stand for.
struct ResolvedRule
{
    const GrammarRule* rule = nullptr;
    PreparedExpression start; ///< of "begin", or of "match"
    PreparedExpression end;   ///< of an "end" that does not speak of groups of "begin"

    bool isBeginEnd() const { return rule->begin.has_value(); }
    bool endSpeaksOfBegin() const { return rule->end && rule->end->hasBackReference(); }
};

/// A list of rules, in the order in which they are tried.
struct ResolvedRules
{
    std::size_t number = 0; ///< counts the lists of the grammar
    std::vector<const ResolvedRule*> rules;
};

/// The rules of a grammar as they are tried: a list is in the order of the file, each rule in it once. A rule
/// that includes itself, directly or not, is tried once: a second try at the same place gives nothing new.
class RuleSearch
{
public:
    explicit RuleSearch(std::shared_ptr<const Grammar> grammar);

    const Grammar& grammar() const { return *m_grammar; }

    /// The scopes of the top level.
    const QStringList& rootScopes() const { return m_rootScopes; }
    ScopeLists& scopeLists() { return m_scopeLists; }

    const ResolvedRules& topLevel() { return list(m_grammar->patterns()); }
    /// Of the "patterns" of a rule.
    const ResolvedRules& patternsOf(const GrammarRule& rule) { return list(*rule.patterns); }

    /// "end" with what the groups of "begin" captured, kept for the next time. One that is not valid is
    /// reported as at loading.
    PreparedExpression endOf(const ResolvedRule& rule, const QStringList& beginCaptures);

    /// Says something in the log, once.
    void reportOnce(const char* text);

private:
    class Collector;

    const ResolvedRules& list(const std::vector<GrammarRule>& patterns);
    const ResolvedRule* resolve(const GrammarRule& rule);

    std::shared_ptr<const Grammar> m_grammar;
    QStringList m_rootScopes;
    ScopeLists m_scopeLists;
    std::unordered_map<const GrammarRule*, std::unique_ptr<ResolvedRule>> m_resolved;
    std::unordered_map<const std::vector<GrammarRule>*, ResolvedRules> m_lists;
    QHash<QString, PreparedExpression> m_ends;
    std::set<std::string> m_reported;
};

} // namespace Halvorin::TextMate

#endif
