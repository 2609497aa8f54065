#include "actionlanguage/runtime/linkexceptions.h"

#include "statechart/text/format.h"

WrongTypeException::WrongTypeException(DataType expected, DataType actual)
    : WrongTypeException(
          formatText("type mismatch: expected '{}', actual '{}'", typeName(expected), typeName(actual)),
          expected, actual)
{}

WrongTypeException::WrongTypeException(const std::string& text, DataType expected, DataType actual)
    : std::runtime_error(text), m_expected(expected), m_actual(actual)
{}

VariableWrongTypeException::VariableWrongTypeException(std::string name, DataType expected, DataType actual)
    : WrongTypeException(formatText("'{}': variable type mismatch: expected '{}', actual '{}'", name,
                                    typeName(expected), typeName(actual)),
                         expected, actual),
      m_name(std::move(name))
{}

VariableNotFoundException::VariableNotFoundException(std::string name)
    : std::runtime_error(formatText("'{}': variable not found", name)), m_name(std::move(name))
{}

DataType linkedType(std::string_view spelling)
{
    if (const auto type = typeFromName(spelling))
        return *type;
    throw std::runtime_error(formatText("unknown type: '{}'", spelling));
}
