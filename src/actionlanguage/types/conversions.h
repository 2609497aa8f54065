#ifndef CONVERSIONS_H
#define CONVERSIONS_H

#include "actionlanguage/tokens/compilationexception.h"
#include "actionlanguage/types/datatype.h"

/// Whether the language converts without being asked. Only int to bool, double to bool and int to double;
/// a type is not converted to itself.
bool canCast(DataType from, DataType to);

/// An expression stands where another type is needed, and there is no conversion.
class HALVWIDGETS_EXPORT InvalidCastException : public CompilationException
{
public:
    InvalidCastException(DataType from, DataType to, const SourceSpan& span);

    DataType from() const { return m_from; }
    DataType to() const { return m_to; }

    /// "invalid cast from '{}' to '{}'"
    std::string message(std::string_view source) const override;

private:
    DataType m_from;
    DataType m_to;
};

#endif
