#ifndef STATEMENTFORMS_H
#define STATEMENTFORMS_H

#include "actionlanguage/rules/compiledform.h"
#include "actionlanguage/rules/statementrule.h"

/// {"rule": "expr", "type", "expr"}: an expression as a statement.
JsonValue expressionStatementForm(ExpressionCompilationObject expression);

/// "(", a condition, ")".
JsonValue compileParenthesisedCondition(TokenStream& tokens, AbstractCompiler& compiler);

/// The member `key` linked as a condition. @throws WrongTypeException when it is no bool.
ExpressionPointer<bool> linkConditionAt(const JsonValue& form, std::string_view key, AbstractLinker& linker);

/// {"type", "expr"} linked as an expression whose value is dropped.
/// @throws WrongTypeException when the expression is not of that type.
ExpressionPointer<void> linkDiscarded(const JsonValue& form, AbstractLinker& linker);

#endif
