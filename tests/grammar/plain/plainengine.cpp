#include "grammar/plain/plainengine.h"

#include <algorithm>

using namespace Halvorin::TextMate;

namespace {

constexpr int mostSteps = 20'000;
constexpr int mostDepth = 40; // far from where the engine stops

QStringList withScope(QStringList scopes, const std::optional<QString>& scope)
{
    if (scope)
        scopes.append(*scope);
    return scopes;
}

} // namespace

std::shared_ptr<const PlainEngine::Open> PlainEngine::tokenise(const QString& line,
                                                               const std::shared_ptr<const Open>& open)
{
    m_line = line;
    m_tokens.clear();
    m_steps = 0;
    Result result;
    for (auto item = open; item && item->rule != nullptr && !result.open; item = item->around)
        result = runBeginEnd(item, result.end, result.end);
    if (!result.open)
        result = runRoot(result.end);
    sort();
    return result.open;
}

bool PlainEngine::match(const AbstractGrammarExpression& expression, const QString& pattern, int position,
                        int anchor, QRegularExpressionMatch& found)
{
    if (++m_steps > mostSteps)
        throw TooManySteps();
    if (expression.isEmpty())
        return false;
    QString final = pattern;
    if (expression.hasAnchorG() && pattern == QLatin1String("\\G") && position != anchor)
        return false;
    if (expression.hasAnchorG() && pattern == QLatin1String("(?!\\G)")) {
        if (position == anchor)
            return false;
        final = QStringLiteral("(?=.*)");
    }
    const QRegularExpression compiled(final);
    if (!compiled.isValid())
        return false;
    found = compiled.match(m_line, position);
    return found.hasMatch();
}

bool PlainEngine::matchEnd(const Open& item, int position, int anchor, QRegularExpressionMatch& found)
{
    if (!item.rule->end)
        return false;
    QString pattern = item.rule->end->pattern();
    if (item.rule->end->hasBackReference()) {
        for (int group = 1; group <= item.begin.lastCapturedIndex(); ++group)
            pattern.replace(QLatin1Char('\\') + QString::number(group), item.begin.captured(group));
    }
    return match(*item.rule->end, pattern, position, anchor, found);
}

std::optional<PlainEngine::Hit> PlainEngine::matchRule(const GrammarRule& rule, int position, int anchor)
{
    if (rule.begin || rule.match) {
        const GrammarExpression& expression = rule.begin ? *rule.begin : *rule.match;
        QRegularExpressionMatch found;
        if (match(expression, expression.pattern(), position, anchor, found))
            return Hit{&rule, found};
        return std::nullopt;
    }
    if (!rule.include)
        return rule.patterns ? bestMatch(*rule.patterns, position, anchor) : std::nullopt;
    if (*rule.include == QLatin1String("$self"))
        return include(&m_grammar, [&] { return bestMatch(m_grammar.patterns(), position, anchor); });
    const GrammarRule* named =
        rule.include->startsWith(QLatin1Char('#')) ? m_grammar.rule(rule.include->mid(1)) : nullptr;
    if (named == nullptr)
        return std::nullopt;
    return include(named, [&] { return matchRule(*named, position, anchor); });
}

/// An include that is being tried already gives nothing.
template <class Try>
std::optional<PlainEngine::Hit> PlainEngine::include(const void* what, Try tryIt)
{
    if (!m_included.insert(what).second)
        return std::nullopt;
    const std::optional<Hit> hit = tryIt();
    m_included.erase(what);
    return hit;
}

std::optional<PlainEngine::Hit> PlainEngine::bestMatch(const std::vector<GrammarRule>& rules, int position,
                                                       int anchor)
{
    std::optional<Hit> best;
    if (position >= m_line.size())
        return best;
    for (const GrammarRule& rule : rules) {
        const std::optional<Hit> hit = matchRule(rule, position, anchor);
        if (hit && (!best || hit->start() < best->start()))
            best = hit;
        if (best && best->start() == position)
            break;
    }
    return best;
}

PlainEngine::Result PlainEngine::runItem(const Hit& hit, const QStringList& scopes,
                                         const std::shared_ptr<const Open>& around)
{
    const int start = hit.start();
    const int end = hit.match.capturedEnd(0);
    const QStringList own = withScope(scopes, hit.rule->name);
    if (!hit.rule->begin) {
        capture(hit.match, hit.rule->captures, own);
        fill(start, end - start, own);
        return {end, nullptr};
    }
    const int depth = around ? around->depth + 1 : 1;
    if (depth > mostDepth)
        throw TooManySteps();
    capture(hit.match, hit.rule->beginCaptures, own);
    capture(hit.match, hit.rule->captures, own);
    return runBeginEnd(std::make_shared<const Open>(Open{hit.rule, hit.match, own, around, depth}), start,
                       end);
}

PlainEngine::Result PlainEngine::runBeginEnd(const std::shared_ptr<const Open>& item, int start, int anchor)
{
    const Result content = runContent(item, anchor);
    if (content.open)
        return content;
    const GrammarRule& rule = *item->rule;
    const QStringList inside = withScope(item->scopes, rule.contentName);
    QRegularExpressionMatch end;
    if (!matchEnd(*item, content.end, anchor, end)) {
        fill(anchor, m_line.size() - anchor, inside);
        fill(start, content.end - start, item->scopes);
        return {m_line.size(), item};
    }
    fill(anchor, end.capturedStart(0) - anchor, inside);
    capture(end, rule.captures, item->scopes);
    capture(end, rule.endCaptures, item->scopes);
    fill(start, end.capturedEnd(0) - start, item->scopes);
    return {end.capturedEnd(0), nullptr};
}

PlainEngine::Result PlainEngine::runContent(const std::shared_ptr<const Open>& item, int anchor)
{
    Result result{anchor, nullptr};
    if (!item->rule->patterns)
        return result;
    const QStringList inside = withScope(item->scopes, item->rule->contentName);
    while (const std::optional<Hit> next = bestMatch(*item->rule->patterns, result.end, anchor)) {
        QRegularExpressionMatch end;
        if (matchEnd(*item, result.end, anchor, end) && next->start() >= end.capturedStart(0))
            break;
        result = runItem(*next, inside, item);
        if (!result.open && result.end <= next->start())
            result.open = item;
        if (result.open)
            break;
    }
    return result;
}

PlainEngine::Result PlainEngine::runRoot(int position)
{
    const QStringList scopes(m_grammar.scopeName());
    Result result{position, nullptr};
    while (const std::optional<Hit> next = bestMatch(m_grammar.patterns(), result.end, position)) {
        result = runItem(*next, scopes, nullptr);
        if (result.open)
            return result;
        if (result.end <= next->start()) {
            result.open = std::make_shared<const Open>();
            break;
        }
    }
    fill(0, m_line.size(), scopes);
    return result;
}

void PlainEngine::fill(int start, int length, const QStringList& scopes)
{
    std::vector<bool> isCovered(static_cast<std::size_t>(m_line.size()) + 1);
    for (const Token& token : m_tokens) {
        for (int column = token.start; column < token.start + token.length; ++column)
            isCovered[static_cast<std::size_t>(column)] = true;
    }
    const auto isFree = [&](int column) {
        return column < start + length && !isCovered[static_cast<std::size_t>(column)];
    };
    for (int column = start; column < start + length; ++column) {
        const int from = column;
        while (isFree(column))
            ++column;
        if (column > from)
            m_tokens.push_back({from, column - from, scopes});
    }
    sort();
}

void PlainEngine::capture(const QRegularExpressionMatch& match, const GrammarCaptures& captures,
                          const QStringList& scopes)
{
    for (int group = 0; group <= match.lastCapturedIndex(); ++group) {
        const auto found = captures.find(group);
        if (match.capturedStart(group) < 0 || found == captures.end())
            continue;
        const QString& name = found->second.name;
        m_tokens.push_back({match.capturedStart(group), match.capturedLength(group),
                            name.isEmpty() ? scopes : scopes + QStringList(name)});
    }
}

void PlainEngine::sort()
{
    std::stable_sort(m_tokens.begin(), m_tokens.end(),
                     [](const Token& first, const Token& second) { return first.start < second.start; });
}
