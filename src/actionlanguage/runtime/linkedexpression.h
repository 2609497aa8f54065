#ifndef LINKEDEXPRESSION_H
#define LINKEDEXPRESSION_H

#include "actionlanguage/runtime/expression.h"
#include "actionlanguage/types/datatype.h"

#include <memory>
#include <stdexcept>
#include <utility>
#include <variant>

template <class T>
using ExpressionPointer = std::unique_ptr<AbstractExpressionImpl<T>>;

/// A linked expression of whatever type: an owning pointer to a node, tagged by its type, or empty.
/// Tags are looked at while linking only.
class LinkedExpression
{
public:
    LinkedExpression() = default;

    template <class T>
    LinkedExpression(ExpressionPointer<T> expression) : m_node(std::move(expression))
    {}

    /// DataType::unknown when empty.
    DataType type() const { return static_cast<DataType>(m_node.index()); }

    template <class T>
    bool holds() const
    {
        return std::holds_alternative<ExpressionPointer<T>>(m_node);
    }

    /// Hands out the node of type T. @throws std::runtime_error with `words` when this is another type.
    template <class T>
    ExpressionPointer<T> take(const char* words)
    {
        if (!holds<T>())
            throw std::runtime_error(words);
        return std::get<ExpressionPointer<T>>(std::exchange(m_node, std::monostate{}));
    }

    /// The node of type T, still owned here. @throws std::bad_variant_access when this is another type.
    template <class T>
    const AbstractExpressionImpl<T>& as() const
    {
        return *std::get<ExpressionPointer<T>>(m_node);
    }

    /// Calls `visitor` with the typed pointer. @throws std::runtime_error "invalid executable creation"
    /// when empty.
    template <class Visitor>
    decltype(auto) visit(Visitor&& visitor)
    {
        using Result = decltype(visitor(std::declval<ExpressionPointer<bool>&>()));
        return std::visit(
            [&](auto& node) -> Result {
                if constexpr (std::is_same_v<std::decay_t<decltype(node)>, std::monostate>)
                    throw std::runtime_error("invalid executable creation");
                else
                    return visitor(node);
            },
            m_node);
    }

private:
    // The alternatives stand in the order of DataType.
    std::variant<std::monostate, ExpressionPointer<bool>, ExpressionPointer<char>, ExpressionPointer<double>,
                 ExpressionPointer<std::int32_t>, ExpressionPointer<std::int64_t>,
                 ExpressionPointer<std::string>, ExpressionPointer<std::uint64_t>, ExpressionPointer<void>>
        m_node;
};

#endif
