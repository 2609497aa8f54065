#include "conversion/scanners/definitionitems.h"
#include "conversion/scanners/expressions.h"
#include "conversion/scanners/seealsoitems.h"
#include "randomtext.h"

#include <gtest/gtest.h>

using namespace Halvorin::Text;

namespace {

/// A hit in words, for comparison and for the reader of a failure.
std::string inWords(const Hit& hit)
{
    const auto span = [](Span s) { return std::to_string(s.start) + "-" + std::to_string(s.end); };
    return span(hit.whole) + " groups " + span(hit.groups[0]) + " " + span(hit.groups[1]) + " " +
           span(hit.groups[2]);
}

QString shown(QString text)
{
    return QLatin1Char('"') + text.replace(QLatin1String("\n"), QLatin1String("\\n")) + QLatin1Char('"');
}

/// What an expression matches at the start of a text; nullopt where it was given up.
std::optional<std::string> expressionHere(const Expression& anchored, const QString& text)
{
    Hit hit;
    switch (anchored.match(QStringRef(&text), 0, hit)) {
    case Expression::Outcome::match:
        return hit.whole.start == 0 ? inWords(hit) : "no match";
    case Expression::Outcome::noMatch:
        return "no match";
    case Expression::Outcome::givenUp:
        break;
    }
    return std::nullopt;
}

struct ScanCase
{
    RuleExpression expression;
    QStringList pieces;
};

QStringList pieces(const char* words)
{
    QStringList list = QString::fromUtf8(words).split(QLatin1Char('|'));
    list << QStringLiteral("\u00a0") << QStringLiteral("\t");
    return list;
}

std::vector<ScanCase> scanCases()
{
    using namespace Expressions;
    const QStringList literal = pieces("a|b::|::|:| |  |    |x y|c::  ");
    const QStringList functions =
        pieces("def f(|def g|(|)|->|) -> int|def h() -> x|\ndef h() -> x|def |a| |  |x: int,|(function) ");
    std::vector<ScanCase> cases = {
        {blankLine(), pieces(" |  |a")},
        {gridTable(), pieces("+--+--+|+-+|+--+|  |  +-+| a|-|+|x ")},
        {simpleTable(), pieces("== ==|== ==|== == |a |=| |b")},
        {overlinedHeading(), pieces("==|=|--|##|**|^|\"\"| |a|title")},
        {underlinedHeading(), pieces("==|=|--|##|**|^|\"\"| |a|title|.")},
        {directive(), pieces(".. |note|:: |.. note:: |.. a:: b| |  |x|..")},
        {bulletList(), pieces("- |* |+ |a|- b|- c| |  |-|* d")},
        {definitionList(), pieces("a|term| |  |   |: |b c|.")},
        {literalBlock(), literal},
        {paragraphLiteral(), literal},
        {doctest(), pieces(">>> |>>>|>| |  |a|1 ")},
        {paragraph(), pieces("a|b c| |  |.")},
        {labelledFunction(), QStringList{QStringLiteral("(function) def h")} + functions},
        {function(), functions},
        {module(), pieces("(module) |(module)|os|.path| |-|(module) a")},
        {parameter(), pieces("(parameter)|(parameter) x|: int| |a")},
        {classLabel(), pieces("(class)|(class) x|(a)| |a")},
        {variable(), pieces("(variable)|(variable) x|: int| |a")},
        {seeAlso(), pieces("See Also\n--------\n|See Also|See Also\n--------|--------|-|  |a : b|foo| ")},
    };
    for (const Marker& marker : enumeratedMarkers) {
        const char* inside = marker.kind == EnumeratedKind::numeric ? "1|12"
                             : marker.kind == EnumeratedKind::alphabetic
                                 ? (marker.isUpperCase ? "A|B" : "a|b")
                                 : (marker.isUpperCase ? "I|II|V" : "i|ii|v");
        QStringList list = pieces("x| |  |   |.|\n#. y|\n(#) z|\n#) w|y");
        for (const QString& index : QString::fromUtf8(inside).split(QLatin1Char('|'))) {
            list << index + QStringLiteral(". ") << QLatin1Char('(') + index + QStringLiteral(") ")
                 << index + QStringLiteral(") ") << QLatin1Char('\n') + index + QStringLiteral(". x")
                 << QStringLiteral("\n(") + index + QStringLiteral(") x")
                 << QLatin1Char('\n') + index + QStringLiteral(") x");
        }
        cases.push_back({enumeratedList(marker), list});
    }
    return cases;
}

TEST(Scanner, FindsAtTheStartOfRandomTextsWhatItsExpressionMatches)
{
    for (const ScanCase& scanCase : scanCases()) {
        const RuleExpression& definition = scanCase.expression;
        SCOPED_TRACE(definition.name.toStdString());
        const Expression anchored(QStringLiteral("\\G(?:") + definition.pattern + QLatin1Char(')'),
                                  definition.options, definition.groups, 200'000);
        QStringList pieces = scanCase.pieces;
        if (definition.isScanAlwaysExact)
            for (const char* end : {"\r\n", "\r\n", "\r", "\v", "\f", "\u0085", "\u2028"})
                pieces << QString::fromUtf8(end);
        // every other text begins with a piece that gives the rule a start
        RandomText texts(pieces);
        int matched = 0;
        for (int count = 0; count < 20'000; ++count) {
            const QString text = (count % 2 == 0 ? scanCase.pieces.first() : QString()) + texts.next();
            const std::optional<std::string> expected = expressionHere(anchored, text);
            if (!expected)
                continue;
            SourceText source{QStringRef(&text)};
            Hit hit;
            const std::string found = definition.scan(source, hit) ? inWords(hit) : "no match";
            EXPECT_EQ(found, *expected) << qPrintable(shown(text));
            if (found != *expected)
                break;
            matched += found != "no match";
        }
        EXPECT_GT(matched, 100);
    }
}

TEST(Scanner, HasAPatternForGridTablesThatFindsTheSameWithFewerSteps)
{
    const RuleExpression definition = Expressions::gridTable();
    const Expression prescribed(QStringLiteral("\\G(?:") + definition.pattern + QLatin1Char(')'),
                                definition.options, definition.groups, 200'000);
    const Expression other(QStringLiteral("\\G(?:") + definition.withFewerSteps + QLatin1Char(')'),
                           definition.options, definition.groups, 200'000);
    RandomText texts(pieces("+--+|+--+--+|\r\n+--+|\v+--+|  |\r\n  +-+| a|-|+|\r|\r\n|\v|\f|\u0085|\u2028"));
    int matched = 0;
    int givenUp = 0; // by the prescribed one alone
    for (int count = 0; count < 40'000; ++count) {
        const QString text =
            (count % 4 == 0 ? QStringLiteral("\v+-+") : QStringLiteral("+--+")) + texts.next();
        const std::optional<std::string> expected = expressionHere(prescribed, text);
        if (!expected) {
            givenUp += expressionHere(other, text) ? 1 : 0;
            continue;
        }
        ASSERT_EQ(expressionHere(other, text), expected) << qPrintable(shown(text));
        matched += *expected != "no match";
    }
    EXPECT_GT(matched, 1000);
    EXPECT_GT(givenUp, 10);
}

TEST(Scanner, FindsInRandomTextsWhatTheInlineExpressionsFind)
{
    using namespace Expressions;
    const QStringList all =
        pieces("*|**|`|``|a|b c| |(|)|.|\\|https://|https://x|<https://y>`_|<|>|`_|:ref:`z`|:ref:|,|😀|http");
    for (const RuleExpression& definition :
         {emphasis(), escape(), linkWithText(), bareLink(), crossReference()}) {
        SCOPED_TRACE(definition.name.toStdString());
        const Expression expression(definition.pattern, definition.options, definition.groups);
        RandomText texts(all);
        int matched = 0;
        for (int count = 0; count < 20'000; ++count) {
            const QString text = texts.next();
            SourceText source{QStringRef(&text)};
            for (int from = 0; from <= text.size(); ++from) {
                if (from > 0 && from < text.size() && text.at(from).isLowSurrogate())
                    continue;
                Hit expected;
                const bool isMatch =
                    expression.match(QStringRef(&text), from, expected) == Expression::Outcome::match;
                Hit hit;
                ASSERT_EQ(definition.find(source, from, hit), isMatch)
                    << qPrintable(shown(text)) << " from " << from;
                if (!isMatch)
                    break;
                ASSERT_EQ(inWords(hit), inWords(expected)) << qPrintable(shown(text)) << " from " << from;
                ++matched;
            }
        }
        EXPECT_GT(matched, 1000);
    }
}

std::vector<std::string> inWords(const std::vector<Hit>& hits)
{
    std::vector<std::string> words;
    for (const Hit& hit : hits)
        words.push_back(inWords(hit));
    return words;
}

/// All hits of an expression, as Qt iterates over them; those that are empty left out.
class GlobalHits
{
public:
    explicit GlobalHits(const RuleExpression& definition)
        : m_groups(definition.groups), m_expression(definition.pattern, definition.options)
    {}

    std::vector<std::string> operator()(const QString& text) const
    {
        std::vector<std::string> words;
        for (auto matches = m_expression.globalMatch(text); matches.hasNext();) {
            const QRegularExpressionMatch match = matches.next();
            if (match.capturedLength(0) == 0)
                continue;
            Hit hit;
            hit.whole = {match.capturedStart(0), match.capturedEnd(0)};
            for (std::size_t index = 0; index < m_groups.size(); ++index)
                hit.groups[index] = {match.capturedStart(m_groups[index]),
                                     match.capturedEnd(m_groups[index])};
            words.push_back(inWords(hit));
        }
        return words;
    }

private:
    std::vector<QString> m_groups;
    QRegularExpression m_expression;
};

TEST(Scanner, FindsTheItemsThatTheExpressionsFind)
{
    using namespace Expressions;
    RandomText texts(pieces(
        "1. |12. |(3) |4) |I. |ii. |(v) |A. |b) |(c) |#. |(#) |#) |x| |  |   |.|term : t|: |:ref:`a`|y z"));
    const std::array forms = {MarkerForm::period, MarkerForm::enclosingParentheses,
                              MarkerForm::closingParenthesis};
    std::vector<GlobalHits> marked;
    for (const Marker& marker : enumeratedMarkers)
        marked.emplace_back(markedItem(marker));
    std::vector<GlobalHits> automatic;
    for (const MarkerForm form : forms)
        automatic.emplace_back(automaticItem(form));
    const GlobalHits definitions(definitionItem());
    for (int count = 0; count < 1'000; ++count) {
        const QString text = texts.next();
        const SourceText source{QStringRef(&text)};
        for (std::size_t index = 0; index < marked.size(); ++index)
            ASSERT_EQ(inWords(findMarkedItems(source, enumeratedMarkers[index])), marked[index](text))
                << qPrintable(shown(text));
        for (std::size_t index = 0; index < automatic.size(); ++index)
            ASSERT_EQ(inWords(findAutomaticItems(source, forms[index])), automatic[index](text))
                << qPrintable(shown(text));
        ASSERT_EQ(inWords(findDefinitionItems(source)), definitions(text)) << qPrintable(shown(text));
    }
}

TEST(Scanner, FindsTheEntriesOfSeeAlsoThatTheExpressionFinds)
{
    const GlobalHits entries(Expressions::seeAlsoItem());
    RandomText texts(pieces("foo|bar.baz|: |:| |  |   |,|:ref:`a`|y z"));
    for (int count = 0; count < 20'000; ++count) {
        const QString text = texts.next();
        std::vector<Hit> hits = findSeeAlsoItems(SourceText(QStringRef(&text)));
        for (Hit& hit : hits)
            if (hit.groups[1].isNull()) // the expression has a group of its own for it
                std::swap(hit.groups[0], hit.groups[2]);
        ASSERT_EQ(inWords(hits), entries(text)) << qPrintable(shown(text));
    }
}

} // namespace
