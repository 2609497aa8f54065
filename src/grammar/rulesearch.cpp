#include "grammar/rulesearch.h"

#include "grammar/grammarlog.h"

#include <unordered_set>
#include <utility>

namespace Halvorin::TextMate {

namespace {

/// Includes in includes beyond this depth give nothing: a file must not decide how deep the stack of calls
/// is.
constexpr int includeDepth = 1000;

/// Texts of back-references come from the document: what was compiled for them must not pile up.
constexpr int endsKept = 256;

/// @param hasAnchorG of the expression in the grammar
PreparedExpression prepare(const QString& pattern, bool hasAnchorG, bool isReported)
{
    const auto make = [isReported](const QString& text) {
        return std::make_shared<LineExpression>(text, isReported);
    };
    if (hasAnchorG && pattern == QLatin1String("\\G"))
        return {make(pattern), AnchorForm::atAnchor};
    if (hasAnchorG && pattern == QLatin1String("(?!\\G)"))
        return {make(QStringLiteral("(?=.*)")), AnchorForm::elsewhere};
    return {make(pattern), AnchorForm::anywhere};
}

PreparedExpression prepare(const AbstractGrammarExpression& expression)
{
    if (expression.isEmpty())
        return {};
    return prepare(expression.pattern(), expression.hasAnchorG(), expression.compiled() != nullptr);
}

/// Puts what "begin" captured into "end", as it stands, in ascending order: \1 within \10 first. False when
/// it gets too long: what is put in may speak of later groups many times.
bool insertCaptures(QString& pattern, const QStringList& captures)
{
    constexpr qint64 maximum = 0x4000; // PCRE2 would take twice as much
    for (int group = 1; group < captures.size(); ++group) {
        const QString reference = QLatin1Char('\\') + QString::number(group);
        const QString& text = captures.at(group);
        if (pattern.size() + qint64(pattern.count(reference)) * text.size() > maximum)
            return false;
        pattern.replace(reference, text);
    }
    return true;
}

} // namespace

/// Walks a list of patterns and what they include, and collects the rules that match by themselves. The order
/// is that in which nested lists would be tried, and of equally early matches the first one counts there,
/// too. What was included once gives nothing new.
class RuleSearch::Collector
{
public:
    Collector(RuleSearch& search, std::vector<const ResolvedRule*>& rules) : m_search(search), m_rules(rules)
    {}

    void addList(const std::vector<GrammarRule>& patterns)
    {
        for (const GrammarRule& rule : patterns)
            add(rule);
    }

private:
    void add(const GrammarRule& rule)
    {
        if (rule.begin || rule.match) {
            if (m_added.insert(&rule).second)
                m_rules.push_back(m_search.resolve(rule));
        } else if (rule.include) {
            addIncluded(*rule.include);
        } else if (rule.patterns) {
            addList(*rule.patterns); // as deep as the file, whose reader has a limit
        }
    }

    void addIncluded(const QString& include)
    {
        if (m_depth == includeDepth)
            return m_search.reportOnce("includes are nested too deeply");
        ++m_depth;
        if (include == QLatin1String("$self"))
            addSelf();
        else if (include.startsWith(QLatin1Char('#')))
            addNamed(include);
        else
            logDiagnostic(QStringLiteral("referencing external grammar files not supported"));
        --m_depth;
    }

    void addSelf()
    {
        if (!std::exchange(m_hasSelf, true))
            addList(m_search.grammar().patterns());
    }

    void addNamed(const QString& include)
    {
        const GrammarRule* rule = m_search.grammar().rule(include.mid(1));
        if (rule == nullptr)
            logDiagnostic(QStringLiteral("unable to find rule: ") + include);
        else if (m_included.insert(rule).second)
            add(*rule);
    }

    RuleSearch& m_search;
    std::vector<const ResolvedRule*>& m_rules;
    std::unordered_set<const GrammarRule*> m_included;
    std::unordered_set<const GrammarRule*> m_added;
    bool m_hasSelf = false;
    int m_depth = 0;
};

RuleSearch::RuleSearch(std::shared_ptr<const Grammar> grammar)
    : m_grammar(std::move(grammar)), m_rootScopes(m_grammar->scopeName())
{}

const ResolvedRules& RuleSearch::list(const std::vector<GrammarRule>& patterns)
{
    const auto [list, isNew] = m_lists.try_emplace(&patterns);
    if (isNew) {
        list->second.number = m_lists.size() - 1;
        Collector(*this, list->second.rules).addList(patterns);
    }
    return list->second;
}

PreparedExpression RuleSearch::endOf(const ResolvedRule& rule, const QStringList& beginCaptures)
{
    QString pattern = rule.rule->end->pattern();
    if (!insertCaptures(pattern, beginCaptures)) {
        reportOnce("an expression is too long with what was captured");
        return {};
    }
    if (const auto found = m_ends.constFind(pattern); found != m_ends.constEnd())
        return *found;
    if (m_ends.size() >= endsKept)
        m_ends.clear();
    return *m_ends.insert(pattern, prepare(pattern, rule.rule->end->hasAnchorG(), false));
}

void RuleSearch::reportOnce(const char* text)
{
    if (m_reported.insert(text).second)
        logDiagnostic(QString::fromUtf8(text));
}

const ResolvedRule* RuleSearch::resolve(const GrammarRule& rule)
{
    std::unique_ptr<ResolvedRule>& resolved = m_resolved[&rule];
    if (!resolved) {
        resolved = std::make_unique<ResolvedRule>();
        resolved->rule = &rule;
        resolved->start = prepare(rule.begin ? *rule.begin : *rule.match);
        if (rule.end && !resolved->endSpeaksOfBegin())
            resolved->end = prepare(*rule.end);
    }
    return resolved.get();
}

} // namespace Halvorin::TextMate
