#include "conversion/scanners/blockscanners.h"
#include "conversion/scanners/literalrows.h"

namespace Halvorin::Text {

namespace {

/// "$" without lines
bool isEnd(const SourceText& text, int position)
{
    return position == text.size() || (position + 1 == text.size() && text[position] == u'\n');
}

/// Behind the white space with two ends of lines, or the last end of a line, that must follow an example; -1
/// for neither.
int behindDoctest(const SourceText& text, int end)
{
    const int behind = text.behindLineEnd(end);
    if (behind > end) {
        int space = text.skip(behind, text.size(), isSpace);
        if (text.behindLineEnd(space) > space) // one that is no white space
            return space + 1;
        while (space > behind && !isLineEnd(text[space - 1]))
            --space;
        if (space > behind)
            return space;
        if (isEnd(text, behind))
            return behind;
    }
    return isEnd(text, end) ? end : -1;
}

} // namespace

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
    if (!text.startsAt(start, QStringLiteral(">>>")))
        return false;
    Line line = text.lineAt(start);
    while (text.hasNext(line) && !text.isAllSpace(text.next(line)))
        line = text.next(line);
    // What follows must fit, so the example may end sooner: at an end of a line other than a line feed.
    for (;;) {
        const bool isFirst = line.start <= start;
        // not before the first word of a line
        const int least = isFirst ? start + 3 : text.skip(line.start, line.end, isSpace) + 1;
        for (int end = line.end; end >= least; --end) {
            const int behind = behindDoctest(text, end);
            if (behind < 0)
                continue;
            hit.groups[0] = {start, end};
            hit.whole = {start, behind};
            return true;
        }
        if (isFirst)
            return false;
        line = text.previous(line);
    }
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
