#ifndef LINKEXCEPTIONS_H
#define LINKEXCEPTIONS_H

#include "actionlanguage/types/datatype.h"
#include "halvwidgetsexport.h"

#include <stdexcept>

/// A compiled text names a type that does not fit the object being linked:
/// "type mismatch: expected '{}', actual '{}'". Expected is what the text asks for.
class HALVWIDGETS_EXPORT WrongTypeException : public std::runtime_error
{
public:
    WrongTypeException(DataType expected, DataType actual);

    DataType expected() const { return m_expected; }
    DataType actual() const { return m_actual; }

protected:
    WrongTypeException(const std::string& text, DataType expected, DataType actual);

private:
    DataType m_expected;
    DataType m_actual;
};

/// The same for a variable: "'{}': variable type mismatch: expected '{}', actual '{}'".
class HALVWIDGETS_EXPORT VariableWrongTypeException : public WrongTypeException
{
public:
    VariableWrongTypeException(std::string name, DataType expected, DataType actual);

    const std::string& name() const { return m_name; }

private:
    std::string m_name;
};

/// A compiled text names a variable that it does not declare: "'{}': variable not found".
class HALVWIDGETS_EXPORT VariableNotFoundException : public std::runtime_error
{
public:
    explicit VariableNotFoundException(std::string name);

    const std::string& name() const { return m_name; }

private:
    std::string m_name;
};

/// The type that a spelling in a compiled text names.
/// @throws std::runtime_error "unknown type: '{}'".
DataType linkedType(std::string_view spelling);

#endif
