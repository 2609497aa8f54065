#include "conversion/scanners/blockscanners.h"

namespace Halvorin::Text {

bool scanBulletList(SourceText& text, Hit& hit)
{
    const int start = text.position();
    if (start == text.size())
        return false;
    const char16_t type = text[start];
    if (type != u'*' && type != u'+' && type != u'-')
        return false;
    const auto isItem = [&](Line line) {
        return line.length() >= 2 && text[line.start] == type && isHorizontalSpace(text[line.start + 1]);
    };
    Line line = text.lineAt(start);
    if (!isItem(line))
        return false;
    int end = -1; // before the last line of blanks, if another line ends the list
    while (text.hasNext(line)) {
        const Line next = text.next(line);
        if (!isItem(next) && !text.isAllHorizontalSpace(next))
            break;
        if (text.skip(next.start, next.end, isBlank) == next.end)
            end = line.end;
        line = next;
    }
    if (!text.hasNext(line))
        end = line.end;
    if (end < 0)
        return false;
    hit.whole = {start, end};
    hit.groups[0] = {start, start + 1};
    hit.groups[1] = hit.whole;
    return true;
}

namespace {

/// The indent of a line whose first character behind horizontal space is of a word; null for another line.
Span indentOfText(const SourceText& text, int start, int end)
{
    const int behind = text.skip(start, end, isHorizontalSpace);
    return behind < end && isWord(text[behind]) ? Span{start, behind} : Span();
}

} // namespace

bool scanDefinitionList(SourceText& text, Hit& hit)
{
    Line term = text.lineAt(text.position());
    const Span indent = indentOfText(text, term.start, term.end);
    if (indent.isNull())
        return false;
    hit.whole = {term.start, -1};
    for (;;) { // a term and its definition
        if (!text.hasNext(term))
            break;
        Line line = text.next(term);
        if (!text.holds(line.start, line.end, indent))
            break;
        const Span deeper = indentOfText(text, line.start + indent.length(), line.end);
        if (deeper.isNull() || deeper.length() == 0)
            break;
        hit.whole.end = line.end;
        Line next;
        while (text.hasNext(line)) {
            next = text.next(line);
            const bool isRow = text.holds(next.start, next.end, indent) &&
                               text.holds(next.start + indent.length(), next.end, deeper);
            if (!isRow && !text.isAllHorizontalSpace(next))
                break;
            line = next;
            hit.whole.end = line.end;
        }
        if (!text.hasNext(line))
            break;
        term = text.next(line);
        const int behindIndent = term.start + indent.length();
        if (!text.holds(term.start, term.end, indent) || behindIndent >= term.end ||
            !isWord(text[behindIndent]))
            break;
    }
    return hit.whole.end >= 0;
}

} // namespace Halvorin::Text
