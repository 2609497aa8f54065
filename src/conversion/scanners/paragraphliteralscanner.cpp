#include "conversion/scanners/blockscanners.h"
#include "conversion/scanners/literalrows.h"

#include <set>

namespace Halvorin::Text {

namespace {

/// Indents for which no marker ahead announces a block: what is not found once is not found further down.
struct VainIndents
{
    std::set<QString> indents;
};

/// The block behind a marker's line: behind at least one blank line, which are as many as there are or fewer.
bool scanBlock(const SourceText& text, Line markerLine, Span indent, Hit& hit)
{
    Line beforeLast;
    Line last;
    int count = 0;
    Line line = text.next(markerLine);
    for (; text.isAllHorizontalSpace(line) && text.hasNext(line); line = text.next(line)) {
        beforeLast = last;
        last = line;
        ++count;
    }
    if (count == 0)
        return false;
    if (isDeeper(text, line, indent)) {
        LiteralRows rows(text, line);
        if (rows.take(indent)) {
            hit.whole.end = rows.end();
            hit.groups[2] = {line.start, rows.blockEnd()};
            return true;
        }
    }
    // One of the blank lines may be the first of the block, if it is deep enough.
    const bool isBlankToTheEnd = text.isAllHorizontalSpace(line);
    Line first = markerLine;
    Line best;
    for (int number = 1; number <= count; ++number) {
        first = text.next(first);
        const bool isEndedByBlank = isBlankToTheEnd || number < count;
        if (number >= 2 && isEndedByBlank && isDeeper(text, first, indent))
            best = first; // the last of them wins
    }
    if (best.isNull())
        return false;
    const bool reachesEnd = isBlankToTheEnd;
    hit.whole.end = reachesEnd ? line.end : last.end + 1;
    hit.groups[2] = {best.start, reachesEnd ? line.end : beforeLast.end};
    return true;
}

} // namespace

bool scanParagraphLiteral(SourceText& text, Hit& hit)
{
    const int start = text.position();
    std::set<QString>& vain = text.memory<VainIndents>().indents;
    // the library of expressions never takes the indent for less than it is
    const int behindIndent = text.skip(start, text.size(), isHorizontalSpace);
    if (behindIndent == text.size() || isSpace(text[behindIndent]))
        return false;
    const Span indent = {start, behindIndent};
    const QString indentText = text.ref(indent).toString();
    if (vain.contains(indentText))
        return false;
    for (int marker = text.size() - 2; marker > behindIndent; --marker) {
        if (text[marker] != u':' || text[marker + 1] != u':')
            continue;
        const int lineFeed = text.skip(marker + 2, text.size(), isHorizontalSpace);
        if (lineFeed == text.size() || text[lineFeed] != u'\n')
            continue;
        const Line line = {lineFeed, lineFeed};
        hit.whole.start = start;
        hit.groups[0] = indent;
        hit.groups[1] = {behindIndent, marker};
        if (scanBlock(text, line, indent, hit))
            return true;
    }
    vain.insert(indentText);
    return false;
}

} // namespace Halvorin::Text
