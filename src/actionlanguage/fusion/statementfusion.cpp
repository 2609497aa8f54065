#include "actionlanguage/fusion/fusednodes.h"
#include "actionlanguage/fusion/fusiontable.h"
#include "actionlanguage/fusion/nodematch.h"
#include "actionlanguage/runtime/statements.h"

namespace {

using Statement = std::unique_ptr<AbstractStatementImpl>;

/// The statement for what becomes of a discarded T, or null.
template <class T>
Statement effectOf(AbstractExpressionImpl<void>& node)
{
    auto* discard = nodeAs<DiscardExpression<T>>(node);
    if (!discard)
        return nullptr;
    const auto fusion = findFusion(fusionTable().effects, *discard->operand());
    return fusion ? fusion(std::move(discard->operand())) : nullptr;
}

template <class... T>
Statement effectAmong(AbstractExpressionImpl<void>& node)
{
    Statement statement;
    static_cast<void>(((statement = effectOf<T>(node)) || ...));
    return statement;
}

Statement effect(AbstractExpressionImpl<void>& node)
{
    return effectAmong<bool, double, std::int32_t, std::int64_t, std::uint64_t>(node);
}

Statement fuseExpressionStatement(AbstractStatementImpl& statement)
{
    return effect(*static_cast<ExpressionStatement&>(statement).expression());
}

/// The statements of a body, without a compound statement around them.
LinkedStatements body(LinkedStatement& statement)
{
    if (auto* compound = nodeAs<CompoundStatement>(statement.node()))
        return std::move(compound->statements());
    std::vector<LinkedStatement> one;
    one.emplace_back(statement.release());
    return LinkedStatements(std::move(one));
}

/// A list in a list is one list, and a list of one is that one.
Statement fuseCompound(AbstractStatementImpl& statement)
{
    std::vector<LinkedStatement> flat;
    for (LinkedStatement& entry : static_cast<CompoundStatement&>(statement).statements().release())
        for (LinkedStatement& inner : body(entry).release())
            flat.push_back(std::move(inner));
    if (flat.size() == 1)
        return flat.front().release();
    return std::make_unique<CompoundStatement>(LinkedStatements(std::move(flat)));
}

Statement branch(ExpressionPointer<bool> condition, BranchParts parts)
{
    if (auto* fusible = dynamic_cast<ConditionExpression*>(condition.get()))
        return fusible->branch(std::move(parts));
    return withCode(condition, [&]<class Code>(Code code) -> Statement {
        return std::make_unique<BranchStatement<Code>>(std::move(code), std::move(parts));
    });
}

Statement loop(ExpressionPointer<bool> condition, LoopParts parts)
{
    if (auto* fusible = dynamic_cast<ConditionExpression*>(condition.get()))
        if (Statement own = fusible->loop(parts))
            return own;
    return withCode(condition, [&]<class Code>(Code code) -> Statement {
        return std::make_unique<LoopStatement<Code>>(std::move(code), std::move(parts));
    });
}

Statement fuseIf(AbstractStatementImpl& statement)
{
    auto& plain = static_cast<IfStatement&>(statement);
    return branch(std::move(plain.condition()), {plain.onTrue().release(), nullptr});
}

Statement fuseIfElse(AbstractStatementImpl& statement)
{
    auto& plain = static_cast<IfElseStatement&>(statement);
    return branch(std::move(plain.condition()), {plain.onTrue().release(), plain.onFalse().release()});
}

Statement fuseWhile(AbstractStatementImpl& statement)
{
    auto& plain = static_cast<WhileStatement&>(statement);
    return loop(std::move(plain.condition()), {nullptr, body(plain.loop()), LoopStep(), true});
}

Statement fuseDo(AbstractStatementImpl& statement)
{
    auto& plain = static_cast<DoWhileStatement&>(statement);
    return loop(std::move(plain.condition()), {nullptr, body(plain.loop()), LoopStep(), false});
}

Statement fuseFor(AbstractStatementImpl& statement)
{
    auto& plain = static_cast<ForStatement&>(statement);
    Statement step = effect(*plain.iteration());
    if (!step)
        step = std::make_unique<ExpressionStatement>(std::move(plain.iteration()));
    return loop(std::move(plain.condition()),
                {plain.init().release(), body(plain.loop()), LoopStep(std::move(step)), true});
}

} // namespace

void appendStatementFusions(FusionTable& table)
{
    table.statements.emplace(typeid(ExpressionStatement), fuseExpressionStatement);
    table.statements.emplace(typeid(CompoundStatement), fuseCompound);
    table.statements.emplace(typeid(IfStatement), fuseIf);
    table.statements.emplace(typeid(IfElseStatement), fuseIfElse);
    table.statements.emplace(typeid(WhileStatement), fuseWhile);
    table.statements.emplace(typeid(DoWhileStatement), fuseDo);
    table.statements.emplace(typeid(ForStatement), fuseFor);
}
