#ifndef ITEMSTREAM_H
#define ITEMSTREAM_H

#include "actionlanguage/rules/expressionitem.h"

#include <span>

/// Reads items from a list, as a TokenStream reads tokens. Items are moved out as they are consumed.
class ItemStream
{
public:
    explicit ItemStream(std::span<ExpressionItem> items) : m_items(items) {}

    bool atEnd() const { return m_consumed == m_items.size(); }
    std::size_t consumed() const { return m_consumed; }

    /// The item ahead, or null at the end.
    const ExpressionItem* next() const { return atEnd() ? nullptr : &m_items[m_consumed]; }

    ExpressionItem& advance() { return m_items[m_consumed++]; }

    bool nextIs(PunctuatorId id) const { return !atEnd() && m_items[m_consumed].isToken(id); }

    /// Consumes the item ahead if it is this punctuator; tells whether it did.
    bool take(PunctuatorId id)
    {
        if (!nextIs(id))
            return false;
        ++m_consumed;
        return true;
    }

private:
    std::span<ExpressionItem> m_items;
    std::size_t m_consumed = 0;
};

#endif
