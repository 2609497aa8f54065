#ifndef LITERALROWS_H
#define LITERALROWS_H

#include "conversion/core/sourcetext.h"

namespace Halvorin::Text {

/// The rows of a literal block: lines that are indented deeper than the line of the marker, and blank ones.
/// The block ends before the last blank line that other rows follow in vain, or with the text.
class LiteralRows
{
public:
    LiteralRows(const SourceText& text, Line first) : m_text(text), m_first(first), m_row(first) {}

    /// Takes rows as long as they fit. False when a row does not and the block could not end before it; then
    /// it may go on there with another indent.
    bool take(Span indent);

    /// How much of the indent the refused row goes deeper than; -1 when it is not indented at all.
    int depthOfRefused(Span indent) const;

    int blockEnd() const { return m_blockEnd; }
    /// Behind the blank line that ends the block.
    int end() const { return m_end; }

private:
    const SourceText& m_text;
    Line m_first;
    Line m_row;
    int m_blockEnd = -1;
    int m_end = -1;
};

/// Whether a line begins with an indent and a blank behind it.
bool isDeeper(const SourceText& text, Line line, Span indent);

} // namespace Halvorin::Text

#endif
