#include "conversion/scanners/expressions.h"
#include "conversion/scanners/inlinescanners.h"

namespace Halvorin::Text::Expressions {

RuleExpression emphasis()
{
    return {.name = QStringLiteral("emphasis"),
            .pattern =
                QStringLiteral(R"#((?<=^|[-:\/'"<([{\s])(?<type>\*\*|\*|\`\`|\`))#"
                               R"#((?<content>[^\s\\]|\S.*?[^\s\\])\k'type'(?=$|[-.,:;!?\\\/'")\]}>\s]))#"),
            .groups = {QStringLiteral("type"), QStringLiteral("content")},
            .find = findEmphasis};
}

RuleExpression escape()
{
    return {.name = QStringLiteral("escape"),
            .pattern = QStringLiteral(R"(\\(?<character>.))"),
            .groups = {QStringLiteral("character")},
            .find = findEscape};
}

RuleExpression linkWithText()
{
    return {.name = QStringLiteral("link with text"),
            .pattern = QStringLiteral(R"(\`(?<text>.*?)\h?\<(?<url>https:\/\/\S+)\>\`_)"),
            .groups = {QStringLiteral("text"), QStringLiteral("url")},
            .find = findLinkWithText};
}

RuleExpression bareLink()
{
    return {.name = QStringLiteral("bare link"),
            .pattern = QStringLiteral(R"(https:\/\/\S+)"),
            .find = findBareLink};
}

RuleExpression crossReference()
{
    return {.name = QStringLiteral("cross-reference"),
            .pattern = QStringLiteral(":ref:`.*?`"),
            .find = findCrossReference};
}

} // namespace Halvorin::Text::Expressions
