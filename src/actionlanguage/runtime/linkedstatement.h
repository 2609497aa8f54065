#ifndef LINKEDSTATEMENT_H
#define LINKEDSTATEMENT_H

#include <memory>
#include <utility>
#include <vector>

class AbstractExecutionInterface;

/// A statement of linked code.
class AbstractStatementImpl
{
public:
    AbstractStatementImpl() = default;
    AbstractStatementImpl(const AbstractStatementImpl&) = delete;
    AbstractStatementImpl& operator=(const AbstractStatementImpl&) = delete;
    virtual ~AbstractStatementImpl() = default;

    virtual void execute(AbstractExecutionInterface& executionInterface) const = 0;
};

/// A small value that owns one statement.
class LinkedStatement
{
public:
    explicit LinkedStatement(std::unique_ptr<AbstractStatementImpl> statement)
        : m_statement(std::move(statement))
    {}

    void execute(AbstractExecutionInterface& executionInterface) const
    {
        m_statement->execute(executionInterface);
    }

    AbstractStatementImpl& node() { return *m_statement; }

    /// The statement, which is not owned here any more.
    std::unique_ptr<AbstractStatementImpl> release() { return std::move(m_statement); }

private:
    std::unique_ptr<AbstractStatementImpl> m_statement;
};

/// Statements that run one after the other: a linked action.
class LinkedStatements
{
public:
    LinkedStatements() = default;
    explicit LinkedStatements(std::vector<LinkedStatement> statements) : m_statements(std::move(statements))
    {}

    std::size_t size() const { return m_statements.size(); }

    void execute(AbstractExecutionInterface& executionInterface) const
    {
        for (const LinkedStatement& statement : m_statements)
            statement.execute(executionInterface);
    }

    /// All of them, which are not owned here any more.
    std::vector<LinkedStatement> release() { return std::move(m_statements); }

private:
    std::vector<LinkedStatement> m_statements;
};

#endif
