#ifndef EXPRESSION_H
#define EXPRESSION_H

class AbstractExecutionInterface;

/// A node of linked code that gives a T. Evaluation is one virtual call a node and looks at no type tag.
/// A tree belongs to the one thread that drives its chart.
template <class T>
class AbstractExpressionImpl
{
public:
    AbstractExpressionImpl() = default;
    AbstractExpressionImpl(const AbstractExpressionImpl&) = delete;
    AbstractExpressionImpl& operator=(const AbstractExpressionImpl&) = delete;
    virtual ~AbstractExpressionImpl() = default;

    virtual T evaluate(AbstractExecutionInterface& executionInterface) const = 0;
};

#endif
