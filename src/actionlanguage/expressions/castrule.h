#ifndef CASTRULE_H
#define CASTRULE_H

#include "actionlanguage/rules/abstractlinker.h"
#include "actionlanguage/rules/compilationobject.h"
#include "actionlanguage/tokens/diagnostic.h"

/// The implicit conversions: {"rule": "cast", "from", "to", "expr"}.
class CastRule
{
public:
    bool canLink(const JsonValue& form) const;

    /// @throws std::runtime_error "cannot link cast operator" for a pair that is no implicit conversion,
    /// "invalid cast operation" when the operand is of another type.
    LinkedExpression link(const JsonValue& form, AbstractLinker& linker) const;
};

/// The expression as a value of type `to`: as it stands when it is of that type already.
/// @throws InvalidCastException at `span` when there is no conversion.
ExpressionCompilationObject castTo(ExpressionCompilationObject expression, DataType to,
                                   const SourceSpan& span);

#endif
