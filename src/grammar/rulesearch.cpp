#include "grammar/rulesearch.h"

#include "HalvCore/application.h"

#include <unordered_set>
#include <utility>

namespace Halvorin::TextMate {

namespace {

/// Includes in includes beyond this depth give nothing: a file must not decide how deep the stack of calls
/// is.
constexpr int includeDepth = 1000;

/// Texts of back-references come from the document: what was compiled for them must not pile up.
constexpr int lateExpressionsKept = 256;

/// The two patterns that the anchor alone decides.
bool isAnchorAlone(const QString& pattern)
{
    return pattern == QLatin1String("\\G") || pattern == QLatin1String("(?!\\G)");
}

RuleExpression prepare(const AbstractGrammarExpression& expression)
{
    RuleExpression prepared;
    prepared.source = &expression;
    if (!expression.isEmpty() && !isAnchorAlone(expression.pattern()))
        prepared.fixed =
            std::make_unique<LineExpression>(expression.pattern(), expression.compiled() != nullptr);
    return prepared;
}

void logDiagnostic(const QString& text)
{
    System::Application::instance().logger().diagnostic("grammar", text.toUtf8().constData());
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

LineExpression& RuleSearch::lateExpression(const QString& pattern)
{
    if (const auto found = m_late.constFind(pattern); found != m_late.constEnd())
        return **found;
    if (m_late.size() >= lateExpressionsKept)
        m_late.clear();
    return **m_late.insert(pattern, std::make_shared<LineExpression>(pattern, false));
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
        if (rule.end) {
            resolved->end = prepare(*rule.end);
            resolved->end.speaksOfBegin = rule.end->hasBackReference();
            if (resolved->end.speaksOfBegin)
                resolved->end.fixed.reset();
        }
    }
    return resolved.get();
}

} // namespace Halvorin::TextMate
