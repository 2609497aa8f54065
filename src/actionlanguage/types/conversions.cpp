#include "actionlanguage/types/conversions.h"

#include "statechart/text/format.h"

bool canCast(DataType from, DataType to)
{
    switch (to) {
    case DataType::boolean:
        return from == DataType::integer || from == DataType::real;
    case DataType::real:
        return from == DataType::integer;
    default:
        return false;
    }
}

InvalidCastException::InvalidCastException(DataType from, DataType to, const SourceSpan& span)
    : CompilationException(LanguageError::invalidCast, span), m_from(from), m_to(to)
{}

std::string InvalidCastException::message(std::string_view) const
{
    return formatText("invalid cast from '{}' to '{}'", typeName(m_from), typeName(m_to));
}
