#include "actionlanguage/fusion/fusion.h"

#include "actionlanguage/fusion/fusiontable.h"

LinkedExpression fused(LinkedExpression expression)
{
    const auto fusion =
        expression.visit([](const auto& node) { return findFusion(fusionTable().expressions, *node); });
    return fusion ? fusion(std::move(expression)) : std::move(expression);
}

LinkedStatement fused(LinkedStatement statement)
{
    AbstractStatementImpl& node = statement.node();
    if (const auto fusion = findFusion(fusionTable().statements, node))
        if (auto replacement = fusion(node))
            return LinkedStatement(std::move(replacement));
    return statement;
}
