#include "conversion/scanners/blockscanners.h"
#include "conversion/scanners/literalrows.h"

namespace Halvorin::Text {

bool scanBlankLine(SourceText& text, Hit& hit)
{
    const int start = text.position();
    const int blanks = text.skip(start, text.size(), isHorizontalSpace);
    const int end = text.behindLineEnd(blanks);
    hit.whole = {start, end};
    return end > blanks;
}

bool scanParagraph(SourceText& text, Hit& hit)
{
    const int start = text.position();
    Line line = text.lineAt(start);
    if (text.isAllSpace(line))
        return false;
    int end = line.end;
    while (text.hasNext(line)) {
        line = text.next(line);
        if (text.isAllSpace(line)) {
            end = text.behindLineEnd(text.skip(line.start, text.size(), isHorizontalSpace));
            hit.whole = {start, end};
            hit.groups[0] = {start, line.start - 1};
            return true;
        }
        end = line.end;
    }
    hit.whole = hit.groups[0] = {start, end};
    return true;
}

bool scanDoctest(SourceText& text, Hit& hit)
{
    const int start = text.position();
    if (text.size() - start < 3 || text[start] != u'>' || text[start + 1] != u'>' || text[start + 2] != u'>')
        return false;
    Line line = text.lineAt(start);
    while (text.hasNext(line)) {
        const Line next = text.next(line);
        if (text.isAllSpace(next))
            break;
        line = next;
    }
    hit.groups[0] = {start, line.end};
    const int behind = text.skip(line.end, text.size(), isSpace);
    int lastLineFeed = behind - 1;
    while (lastLineFeed > line.end && text[lastLineFeed] != u'\n')
        --lastLineFeed;
    if (lastLineFeed > line.end) // an empty line, or blanks, between two line feeds
        hit.whole = {start, lastLineFeed + 1};
    else if (behind == text.size() && behind - line.end <= 1)
        hit.whole = {start, behind};
    else
        return false;
    return true;
}

bool scanLiteralBlock(SourceText& text, Hit& hit)
{
    const int start = text.position();
    const Line first = text.lineAt(start);
    int marker = first.end;
    while (marker > start && isHorizontalSpace(text[marker - 1]))
        --marker;
    marker -= 2;
    if (!text.hasNext(first) || marker < start || text[marker] != u':' || text[marker + 1] != u':')
        return false;
    const Line empty = text.next(first);
    if (empty.length() != 0 || !text.hasNext(empty))
        return false;

    // The indent may be taken for less than it is, so that rows become a part of the block that would not be
    // otherwise: as soon as the block cannot end before such a row.
    Span indent = {start, text.skip(start, first.end, isHorizontalSpace)};
    LiteralRows rows(text, text.next(empty));
    while (!rows.take(indent)) {
        const int depth = rows.depthOfRefused(indent);
        if (depth < 0)
            return false;
        indent.end = start + depth;
    }
    hit.whole = {start, rows.end()};
    hit.groups = {indent, {indent.end, marker}, {empty.start, rows.blockEnd()}};
    return true;
}

} // namespace Halvorin::Text
