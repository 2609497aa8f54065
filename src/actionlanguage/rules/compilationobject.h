#ifndef COMPILATIONOBJECT_H
#define COMPILATIONOBJECT_H

#include "actionlanguage/types/datatype.h"
#include "statechart/json/jsonvalue.h"

/// How deep expressions, and blocks, may nest. It stands far above honest code; it keeps the stack from
/// overflowing, and compiled texts within what the JSON reader takes.
inline constexpr unsigned languageMaximumDepth = 1000;

/// Something compiled: its compiled form.
class CompilationObject
{
public:
    CompilationObject() = default;
    explicit CompilationObject(JsonValue form) : m_form(std::move(form)) {}

    const JsonValue& form() const& { return m_form; }
    JsonValue&& form() && { return std::move(m_form); }

private:
    JsonValue m_form;
};

/// A compiled expression, with the type of its value. The type of an empty one is DataType::unknown.
class ExpressionCompilationObject : public CompilationObject
{
public:
    ExpressionCompilationObject() = default;

    /// @param depth how deep the expression nests: 1 for one without operands.
    ExpressionCompilationObject(JsonValue form, DataType type, unsigned depth = 1)
        : CompilationObject(std::move(form)), m_type(type), m_depth(depth)
    {}

    DataType type() const { return m_type; }
    unsigned depth() const { return m_depth; }

private:
    DataType m_type = DataType::unknown;
    unsigned m_depth = 0;
};

#endif
