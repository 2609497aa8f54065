#include "actionlanguage/fusion/fusedstatements.h"

#include "actionlanguage/fusion/nodematch.h"

LoopStep::LoopStep(std::unique_ptr<AbstractStatementImpl> statement) : m_statement(std::move(statement))
{
    if (const auto* step = nodeAs<StepStatement<std::int32_t>>(*m_statement)) {
        m_counter = step->storage();
        m_step = step->step();
    }
}

AbstractBranchStatement::AbstractBranchStatement(BranchParts&& parts) : m_parts(std::move(parts)) {}

AbstractBranchStatement::~AbstractBranchStatement() = default;

AbstractLoopStatement::AbstractLoopStatement(LoopParts&& parts) : m_parts(std::move(parts)) {}

AbstractLoopStatement::~AbstractLoopStatement() = default;
