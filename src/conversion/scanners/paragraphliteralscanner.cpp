#include "conversion/scanners/blockscanners.h"
#include "conversion/scanners/literalmarkers.h"
#include "conversion/scanners/literalrows.h"

namespace Halvorin::Text {

namespace {

/// The block behind a marker's line: behind at least one blank line, which are as many as there are or fewer.
bool scanBlock(const SourceText& text, Line markerLine, Span indent, Hit& hit)
{
    const LiteralGap gap(text, markerLine);
    if (gap.count == 0)
        return false;
    if (isDeeper(text, gap.behind, indent)) {
        LiteralRows rows(text, gap.behind);
        if (rows.take(indent)) {
            hit.whole.end = rows.end();
            hit.groups[2] = {gap.behind.start, rows.blockEnd()};
            return true;
        }
    }
    // One of the blank lines may be the first of the block, if it is deep enough.
    Line first = markerLine;
    Line best;
    for (int number = 1; number <= gap.count; ++number) {
        first = text.next(first);
        if (mayBeginBlock(gap, number) && isDeeper(text, first, indent))
            best = first; // the last of them wins
    }
    if (best.isNull())
        return false;
    const bool reachesEnd = gap.isBlankToTheEnd;
    hit.whole.end = reachesEnd ? gap.behind.end : gap.last.end + 1;
    hit.groups[2] = {best.start, reachesEnd ? gap.behind.end : gap.beforeLast.end};
    return true;
}

} // namespace

bool scanParagraphLiteral(SourceText& text, Hit& hit)
{
    const int start = text.position();
    // the library of expressions never takes the indent for less than it is
    const int behindIndent = text.skip(start, text.size(), isHorizontalSpace);
    if (behindIndent == text.size() || isSpace(text[behindIndent]))
        return false;
    const Span indent = {start, behindIndent};
    const int marker = text.memory<LiteralMarkers>().last(text, indent);
    if (marker <= behindIndent)
        return false;
    hit.whole.start = start;
    hit.groups[0] = indent;
    hit.groups[1] = {behindIndent, marker};
    return scanBlock(text, text.lineAt(marker), indent, hit);
}

} // namespace Halvorin::Text
