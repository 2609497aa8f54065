#include "conversion/scanners/blockscanners.h"
#include "conversion/scanners/expressions.h"

namespace Halvorin::Text::Expressions {

namespace {

constexpr auto none = QRegularExpression::NoPatternOption;
constexpr auto multiline = QRegularExpression::MultilineOption;

using Groups = std::vector<QString>;

const QString content = QStringLiteral("content");

/// What stands around the inside of a marker, as expressions.
QString bracketed(MarkerForm form, const QString& inside)
{
    switch (form) {
    case MarkerForm::period:
        return inside + QStringLiteral("\\.");
    case MarkerForm::enclosingParentheses:
        return QStringLiteral("\\(") + inside + QStringLiteral("\\)");
    case MarkerForm::closingParenthesis:
        break;
    }
    return inside + QStringLiteral("\\)");
}

RuleExpression label(const QString& word)
{
    const QString text = QLatin1Char('(') + word + QLatin1Char(')');
    return {word, QStringLiteral("^\\(%1\\).*").arg(word), none, {}, [text](SourceText& source, Hit& hit) {
                return scanLabel(source, text, hit);
            }};
}

} // namespace

RuleExpression blankLine()
{
    return {.name = QStringLiteral("blank line"),
            .pattern = QStringLiteral(R"(^\h*\R)"),
            .scan = scanBlankLine,
            .isScanAlwaysExact = true};
}

RuleExpression gridTable()
{
    const QString top = QStringLiteral(R"((?<indent>[^\S\r\n]*)\+-+(?:\+-+)*\+[^\S\r\n]*)");
    const QString bottom = QStringLiteral(R"(\R\k'indent'\+-+(?:\+-+)*\+[^\S\r\n]*(?:\R\h+$|\R$|\z))");
    RuleExpression expression{QStringLiteral("grid table"), top + QStringLiteral(R"((?:\R.*)*?)") + bottom,
                              multiline, Groups{QStringLiteral("indent")}, scanGridTable};
    // The bottom is tried behind the top, then at each line feed from there on, and where none fits, at all
    // ends of lines from the last one back. Other orders of doing that find the same by exponentially many
    // steps.
    expression.withFewerSteps = top + QStringLiteral(R"((?:|\R(?:.*+\n)*?.*+|\R[\S\s]*))") + bottom;
    return expression;
}

RuleExpression simpleTable()
{
    return {
        QStringLiteral("simple table"),
        QStringLiteral(R"(\s*\K(?<border>\=+(?:\h+\=+)+(?:\h+|))(?:\R(?<header>.*\w.*(?:\R.*?)*)\k'border')?)"
                       R"((?:\R(?<content>.*\w.*(?:\R.*?)*)\k'border')(?=\R\h+$|\R$|\z))"),
        multiline,
        Groups{QStringLiteral("border"), QStringLiteral("header"), content},
        scanSimpleTable,
        nullptr,
        true};
}

RuleExpression overlinedHeading()
{
    return {QStringLiteral("heading with overline"),
            QStringLiteral(R"#((?<type>#|\*|=|-|\^|")\k'type'*[^\S\r\n]*\R(?<title>.*)\R\k'type'+$)#"),
            multiline, Groups{QStringLiteral("type"), QStringLiteral("title")}, scanOverlinedHeading};
}

RuleExpression underlinedHeading()
{
    return {QStringLiteral("heading with underline"),
            QStringLiteral(R"#((?<title>.*\w+.*)\R(?:(?<type>#|\*|=|-|\^|")\k'type'*[^\S\r\n]*$))#"),
            multiline, Groups{QStringLiteral("type"), QStringLiteral("title")}, scanUnderlinedHeading};
}

RuleExpression directive()
{
    return {QStringLiteral("directive"),
            QStringLiteral(R"(^(?<initialIndent>[^\S\r\n]*)\.\. (?<name>\w+):: (?<value>.*\R)?)"
                           R"((?<content>(?:^\k<initialIndent>[^\S\r\n]+.*\R?)*))"),
            multiline, Groups{QStringLiteral("name"), QStringLiteral("value"), content}, scanDirective};
}

RuleExpression bulletList()
{
    return {
        QStringLiteral("bullet list"),
        QStringLiteral(R"((?:\A|^[^\S\r\n]*$\R)\K(?<content>(?<type>[*+-])\h.*(?:\R(?:\k'type'\h.*|\h+$|))*))"
                       R"((?=\R[^\S\r\n]*$|\z))"),
        multiline, Groups{QStringLiteral("type"), content}, scanBulletList};
}

RuleExpression enumeratedList(const Marker& marker)
{
    const QString inside =
        marker.characterClass() + (marker.isOneCharacter() ? QString() : QStringLiteral("+"));
    const QString item = bracketed(marker.form, inside);
    const QString automatic = bracketed(marker.form, QStringLiteral("\\#"));
    const QString behind = QStringLiteral(R"((?=(?:\R(?:\k'indent'(?:\g'xrow'|\g'arow'|\h.*)|\h+$|$))|\z))");
    QString first = QStringLiteral(R"(\g'xrow')");
    if (marker.kind == EnumeratedKind::romanNumeral)
        first = bracketed(marker.form, marker.isUpperCase ? QStringLiteral("I") : QStringLiteral("i")) +
                QStringLiteral(R"(\h.*)") + behind;
    QString pattern = QStringLiteral(
        R"(^(?<xrows>(?<indent>[^\S\r\n]*)(?(DEFINE)(?'arow'AUTO\h.*))(?(DEFINE)(?'xrow'ITEM\h.*BEHIND)))"
        R"(FIRST(?:\R\k'indent'(?:\g'xrow'|\h+.*|$))*))"
        R"((?<arows>(?:\R\k'indent'(?:\g'arow'|\h+.*|$))*))");
    pattern.replace(QLatin1String("AUTO"), automatic)
        .replace(QLatin1String("ITEM"), item)
        .replace(QLatin1String("FIRST"), first)
        .replace(QLatin1String("BEHIND"), behind);
    return {QStringLiteral("enumerated list of ") + item, pattern, multiline,
            Groups{QStringLiteral("xrows"), QStringLiteral("arows")},
            [marker](SourceText& text, Hit& hit) { return scanEnumeratedList(text, marker, hit); }};
}

RuleExpression definitionList()
{
    return {
        QStringLiteral("definition list"),
        QStringLiteral(R"((?<indent>^(?:\h+|))\w.*(\R\k'indent'(\h+)\w.*(?:\R\k'indent'\3.*|\R\h+$|\R$)*))"
                       R"((?:\R\k'indent'\w.*\g'2')*(?=\R\h+$|\R$|))"),
        multiline,
        {},
        scanDefinitionList};
}

RuleExpression literalBlock()
{
    return {QStringLiteral("literal block"),
            QStringLiteral(R"(^(?<indent>\h*)(?<pretext>.*)::\h*\R(?<block>(?:\R(?:\k'indent'\h+.*|\h*))+))"
                           R"((?:\R\h*(?:\R|$)|$))"),
            none, Groups{QStringLiteral("indent"), QStringLiteral("pretext"), QStringLiteral("block")},
            scanLiteralBlock};
}

RuleExpression doctest()
{
    return {QStringLiteral("doctest"),
            QStringLiteral(R"((?<content>>>>.*(?:\R.*\S.*)*)(?:\R\s*\R|\R$|$))"),
            none,
            Groups{content},
            scanDoctest,
            nullptr,
            true};
}

RuleExpression paragraph()
{
    return {.name = QStringLiteral("paragraph"),
            .pattern = QStringLiteral(R"(^(?<content>.*\S.*(?:\R.*\S.*)*)(?:\R\h*(?:\R|$)|$))"),
            .groups = {content},
            .scan = scanParagraph,
            .isScanAlwaysExact = true};
}

RuleExpression paragraphLiteral()
{
    return {QStringLiteral("paragraph with literal block"),
            QStringLiteral(R"(^(?<indent>\h*)(?<pretext>\S[\S\s]*)::\h*\R(\h*\R)+)"
                           R"((?<block>\k'indent'\h.*(?:\R(?:\k'indent'\h.*|\h*))*)(?:\R\h*(?:\R|$)|$))"),
            none, Groups{QStringLiteral("indent"), QStringLiteral("pretext"), QStringLiteral("block")},
            scanParagraphLiteral};
}

RuleExpression labelledFunction()
{
    return {
        QStringLiteral("function with label"),
        QStringLiteral(
            R"(^(?<content>\(function\)\s+(?:def\s+\w+.*\((?:.*\R)*?.*\)\h*->.*\s*)+)(?:\R\s*\R|\R$|\z))"),
        none, Groups{content}, scanLabelledFunction};
}

RuleExpression function()
{
    return {QStringLiteral("function"),
            QStringLiteral(R"(^(?<content>(?:def\s+\w+.*\((?:.*\R)*?.*\)\h*->.*\s*)+)(?:\R\s*\R|\R$|\z))"),
            none, Groups{content}, scanFunction};
}

RuleExpression module()
{
    return {QStringLiteral("module"), QStringLiteral(R"(^\(module\) \w\S*)"), none, {}, scanModule};
}

RuleExpression parameter()
{
    return label(QStringLiteral("parameter"));
}

RuleExpression classLabel()
{
    return label(QStringLiteral("class"));
}

RuleExpression variable()
{
    return label(QStringLiteral("variable"));
}

RuleExpression seeAlso()
{
    // the end of the text ends the section's last line too
    return {QStringLiteral("see also"),
            QStringLiteral(R"(See Also\h*\R\h*--------+\h*\R(?<content>(?:.*\R(?!\h*-+\h*))*(?:.+\z)?))"),
            none, Groups{content}, scanSeeAlso};
}

RuleExpression markedItem(const Marker& marker)
{
    const QString inside = QStringLiteral("(?<idx>") + marker.characterClass() +
                           (marker.isOneCharacter() ? QStringLiteral(")") : QStringLiteral("+)"));
    return {QStringLiteral("item"),
            QStringLiteral(R"((?<indent>[^\S\r\n]*))") + bracketed(marker.form, inside) +
                QStringLiteral(R"(\h(?<content>.*(?:\R\k'indent'\h+.*)*))"),
            none, Groups{QStringLiteral("idx"), content}};
}

RuleExpression automaticItem(MarkerForm form)
{
    return {QStringLiteral("automatic item"),
            QStringLiteral(R"((?<indent>[^\S\r\n]*))") + bracketed(form, QStringLiteral("\\#")) +
                QStringLiteral(R"(\h(?<content>.*(?:\R\k'indent'\h+.*)*))"),
            none, Groups{QStringLiteral("idx"), content}};
}

RuleExpression definitionItem()
{
    return {QStringLiteral("definition"),
            QStringLiteral(R"((?<def>.*\w.*)\R(?<content>(?<indent>\h+)\w.*(?:\R\k'indent'.*|\R\h+|\R|)*))"),
            none, Groups{QStringLiteral("def"), content}};
}

RuleExpression seeAlsoItem()
{
    return {
        QStringLiteral("see also item"),
        QStringLiteral(
            R"(^(?<indent>\h*)(?<name>\w+[^\r\n:]*?)\h*:\h*(?<description>.*(?:\R\k'indent'\h+[^\r\n:]*)?))"
            R"(|(?<nameOnly>[^\r\n:]*|.*\:ref\:.*))"),
        multiline, Groups{QStringLiteral("name"), QStringLiteral("description"), QStringLiteral("nameOnly")}};
}

} // namespace Halvorin::Text::Expressions
