#ifndef OPERATORRULE_H
#define OPERATORRULE_H

#include "actionlanguage/rules/compiledform.h"
#include "actionlanguage/rules/expressionrule.h"

/// A rule that is known by the text of its operator.
class AbstractOperatorRule : public AbstractExpressionRuleImpl
{
public:
    explicit AbstractOperatorRule(std::string_view text) : m_text(text) {}

    const std::string& text() const { return m_text; }

protected:
    /// Whether the list has this operator at all: most sweeps end here.
    bool standsIn(const ItemList& items) const;

    /// {"rule": name, "op": text}
    JsonObject operatorForm(std::string_view ruleName, std::size_t members = 4) const;

private:
    std::string m_text;
};

/// The operand step: compiles the operand of `operatorItem`. An error without a place becomes `code`, with
/// the operator as its text: expectedExpressionAfter or expectedExpressionBefore.
ExpressionCompilationObject compileOperand(ExpressionItem& operand, const ExpressionItem& operatorItem,
                                           LanguageError code, AbstractCompiler& compiler);

/// What a rule reduces items to. @throws NestingException at `blamed` when it nests too deeply.
ExpressionItem reducedItem(JsonObject form, DataType type, unsigned depth, const SourceSpan& span,
                           const SourceSpan& blamed);

/// The implementation for a pair of operand types, or null.
template <class List>
auto findImplementation(const List& implementations, DataType left, DataType right)
{
    for (const auto& implementation : implementations)
        if (implementation->leftType() == left && implementation->rightType() == right)
            return implementation.get();
    return decltype(implementations.front().get())();
}

/// The implementation for an operand type, or null.
template <class List>
auto findImplementation(const List& implementations, DataType operand)
{
    for (const auto& implementation : implementations)
        if (implementation->operandType() == operand)
            return implementation.get();
    return decltype(implementations.front().get())();
}

/// The implementation that a compiled form asks for. @throws std::runtime_error "cannot link operator".
template <class Implementation>
const Implementation& linkedImplementation(const Implementation* found)
{
    if (!found)
        throw std::runtime_error("cannot link operator");
    return *found;
}

/// Holds the "type" of a compiled form {"type", "id"} against the variable that it refers to.
/// @throws VariableWrongTypeException when the variable's storage is of another type.
void checkVariableType(const JsonValue& form, const LinkedVariable& variable);

#endif
