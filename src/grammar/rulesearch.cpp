#include "grammar/rulesearch.h"

#include "HalvCore/application.h"

#include <unordered_set>
#include <utility>

namespace Halvorin::TextMate {

namespace {

/// Texts of back-references come from the document: what was compiled for them must not pile up.
constexpr int lateExpressionsKept = 256;

void logDiagnostic(const QString& text)
{
    System::Application::instance().logger().diagnostic("grammar", text.toUtf8().constData());
}

} // namespace

/// Walks a list of patterns and what they include, and collects the rules that match by themselves. The order
/// is that in which nested lists would be tried, and of equally early matches the first one counts there,
/// too.
class RuleSearch::Collector
{
public:
    Collector(RuleSearch& search, std::vector<const ResolvedRule*>& rules) : m_search(search), m_rules(rules)
    {}

    void addList(const std::vector<GrammarRule>& patterns)
    {
        // A list within a list of a file is as deep as the file; what includes go to is entered once.
        if (!m_entered.insert(&patterns).second)
            return;
        for (const GrammarRule& rule : patterns)
            add(rule);
    }

private:
    void add(const GrammarRule& rule)
    {
        if (rule.begin || rule.match) {
            if (m_added.insert(&rule).second)
                m_rules.push_back(m_search.resolve(rule));
        } else if (!rule.include) {
            if (rule.patterns)
                addList(*rule.patterns);
        } else {
            addIncluded(*rule.include);
        }
    }

    void addIncluded(const QString& include)
    {
        if (include == QLatin1String("$self"))
            return addList(m_search.grammar().patterns());
        if (!include.startsWith(QLatin1Char('#')))
            return logDiagnostic(QStringLiteral("referencing external grammar files not supported"));
        const GrammarRule* rule = m_search.grammar().rule(include.mid(1));
        if (rule == nullptr)
            return logDiagnostic(QStringLiteral("unable to find rule: ") + include);
        if (m_included.insert(rule).second)
            add(*rule);
    }

    RuleSearch& m_search;
    std::vector<const ResolvedRule*>& m_rules;
    std::unordered_set<const std::vector<GrammarRule>*> m_entered;
    std::unordered_set<const GrammarRule*> m_included;
    std::unordered_set<const GrammarRule*> m_added;
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

const SearchExpression& RuleSearch::lateExpression(const QString& pattern)
{
    if (const auto found = m_late.constFind(pattern); found != m_late.constEnd())
        return **found;
    if (m_late.size() >= lateExpressionsKept)
        m_late.clear();
    compileExpression(pattern); // reports what is wrong with it
    return **m_late.insert(pattern, std::make_shared<SearchExpression>(pattern));
}

void RuleSearch::reportDepth()
{
    if (!std::exchange(m_depthReported, true))
        logDiagnostic(QStringLiteral("rules are nested too deeply"));
}

const ResolvedRule* RuleSearch::resolve(const GrammarRule& rule)
{
    std::unique_ptr<ResolvedRule>& resolved = m_resolved[&rule];
    if (!resolved) {
        resolved = std::make_unique<ResolvedRule>();
        resolved->rule = &rule;
        resolved->start = prepare(rule.begin ? *rule.begin : *rule.match);
        if (rule.end)
            resolved->end = prepare(*rule.end);
    }
    return resolved.get();
}

RuleExpression RuleSearch::prepare(const AbstractGrammarExpression& expression)
{
    RuleExpression prepared;
    prepared.source = &expression;
    prepared.number = m_expressionCount++;
    if (expression.compiled() != nullptr)
        prepared.compiled = std::make_unique<SearchExpression>(expression.pattern());
    return prepared;
}

} // namespace Halvorin::TextMate
