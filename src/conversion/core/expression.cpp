#include "conversion/core/expression.h"

#include "HalvCore/application.h"
#include "conversion/core/allowance.h"

#include <atomic>

namespace Halvorin::Text {

namespace {

std::atomic<int> givenUp = 0;

// Where a scanner stands ready, the steps that the library of expressions counts are limited.

/// Of the first attempt at a place. Most need few.
constexpr int fewSteps = 1'000;
/// Of the second attempt, which is made as long as the allowance has some left.
constexpr int mostSteps = 200'000;
/// Of the search for all hits in a part of a text.
constexpr int searchSteps = 10'000;
/// The longest part that is searched so.
constexpr int longestSearched = 1'000;

QString positioned(const RuleExpression& definition)
{
    return QStringLiteral("\\G(?:%1)")
        .arg(definition.withFewerSteps.isEmpty() ? definition.pattern : definition.withFewerSteps);
}

} // namespace

Hit Hit::movedBy(int distance) const
{
    const auto moved = [distance](Span span) {
        return span.isNull() ? span : Span{span.start + distance, span.end + distance};
    };
    Hit hit = *this;
    hit.whole = moved(whole);
    for (Span& group : hit.groups)
        group = moved(group);
    return hit;
}

Expression::Expression(const QString& pattern, QRegularExpression::PatternOptions options,
                       std::vector<QString> groups, int steps)
    : m_pattern(pattern), m_groups(std::move(groups))
{
    const QString withoutCompiler = QStringLiteral("(*NO_JIT)");
    if (steps == 0) {
        m_expression = QRegularExpression(pattern, options);
        m_withoutCompiler = QRegularExpression(withoutCompiler + pattern, options);
    } else {
        const QString limit = QStringLiteral("(*LIMIT_MATCH=%1)").arg(steps);
        m_expression = QRegularExpression(withoutCompiler + limit + pattern, options);
    }
    m_expression.optimize();
}

Expression::Outcome Expression::tryMatch(const QStringRef& source, int offset, Hit& hit,
                                         bool isWellFormed) const
{
    if (!m_expression.isValid() || offset < 0 || offset > source.size())
        return Outcome::noMatch;
    const auto run = [&](const QRegularExpression& expression) {
        return expression.match(source, offset, QRegularExpression::NormalMatch,
                                isWellFormed ? QRegularExpression::DontCheckSubjectStringMatchOption
                                             : QRegularExpression::NoMatchOption);
    };
    const QRegularExpressionMatch first = run(m_expression);
    if (first.isValid())
        return give(first, hit);
    if (!m_withoutCompiler.pattern().isEmpty()) {
        const QRegularExpressionMatch second = run(m_withoutCompiler);
        if (second.isValid())
            return give(second, hit);
    }
    return Outcome::givenUp;
}

Expression::Outcome Expression::match(const QStringRef& source, int offset, Hit& hit, bool isWellFormed) const
{
    const Outcome outcome = tryMatch(source, offset, hit, isWellFormed);
    if (outcome == Outcome::givenUp) {
        ++givenUp;
        System::Application::instance().logger().diagnostic(
            "text", ("an expression was given up on a long text: " + m_pattern.toStdString()).c_str());
    }
    return outcome;
}

int Expression::givenUpCount()
{
    return givenUp;
}

Expression::Outcome Expression::give(const QRegularExpressionMatch& match, Hit& hit) const
{
    if (!match.hasMatch())
        return Outcome::noMatch;
    hit = {};
    hit.whole = {match.capturedStart(0), match.capturedEnd(0)};
    for (std::size_t index = 0; index < m_groups.size(); ++index)
        hit.groups[index] = {match.capturedStart(m_groups[index]), match.capturedEnd(m_groups[index])};
    return Outcome::match;
}

PositionedExpression::PositionedExpression(RuleExpression definition)
    : m_definition(std::move(definition)), m_here(positioned(m_definition), m_definition.options,
                                                  m_definition.groups, m_definition.scan ? fewSteps : 0),
      m_hereAtLength(m_definition.scan ? positioned(m_definition) : QString(), m_definition.options,
                     m_definition.groups, mostSteps)
{}

bool PositionedExpression::matchHere(SourceText& text, Hit& hit) const
{
    const auto scan = [&] {
        if (!m_definition.scan(text, hit))
            return false;
        hit = hit.movedBy(-text.position());
        return true;
    };
    if (m_definition.scan && (m_definition.isScanAlwaysExact || text.isForScanners()))
        return scan();
    const QStringRef rest = text.rest();
    const bool isWellFormed = text.isRestWellFormed();
    Expression::Outcome outcome = m_definition.scan ? m_here.tryMatch(rest, 0, hit, isWellFormed)
                                                    : m_here.match(rest, 0, hit, isWellFormed);
    if (outcome == Expression::Outcome::givenUp && m_definition.scan) {
        if (Allowance::current().takeAttempt(rest.size()))
            outcome = m_hereAtLength.match(rest, 0, hit, isWellFormed);
        if (outcome == Expression::Outcome::givenUp)
            return scan();
    }
    return outcome == Expression::Outcome::match && hit.whole.start == 0;
}

std::vector<Hit> findAll(const QStringRef& source, const RuleExpression& definition,
                         const std::function<std::vector<Hit>(const SourceText&)>& scan)
{
    const SourceText text(source);
    if (text.isForScanners() || text.size() > longestSearched)
        return scan(text);
    const Expression expression(definition.pattern, definition.options, definition.groups, searchSteps);
    std::vector<Hit> hits;
    for (Hit hit;;) {
        switch (expression.match(source, hits.empty() ? 0 : hits.back().whole.end, hit)) {
        case Expression::Outcome::match:
            hits.push_back(hit);
            break;
        case Expression::Outcome::noMatch:
            return hits;
        case Expression::Outcome::givenUp:
            return scan(text);
        }
    }
}

} // namespace Halvorin::Text
