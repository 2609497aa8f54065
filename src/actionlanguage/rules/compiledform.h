#ifndef COMPILEDFORM_H
#define COMPILEDFORM_H

#include "actionlanguage/rules/compilationobject.h"

/// The compiled form of a piece of code is one JSON value: a literal is the literal itself, a null statement
/// is null, a compound statement an array, and everything else an object whose "rule" says what it is.
namespace CompiledForm {

/// {"rule": name}, with room for so many members: charts hold hundreds of thousands of forms.
JsonObject rule(std::string_view name, std::size_t members = 4);

/// {"type": its type, "expr": its form}
JsonObject typed(ExpressionCompilationObject expression);

/// {"type": type, "id": id}
JsonObject variable(DataType type, std::string_view id);

/// The spelling of a type, as a value.
JsonValue spelling(DataType type);

/// Whether a value is an object with this "rule".
bool isRule(const JsonValue& value, std::string_view name);

/// Whether it also has this "op".
bool isOperator(const JsonValue& value, std::string_view name, std::string_view op);

/// The type that a member of a compiled form spells.
/// @throws JsonTypeException "invalid key", "invalid cast"; std::runtime_error "unknown type: '{}'".
DataType typeAt(const JsonValue& value, std::string_view key);

} // namespace CompiledForm

#endif
