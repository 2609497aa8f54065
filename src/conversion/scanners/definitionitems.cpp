#include "conversion/scanners/definitionitems.h"

namespace Halvorin::Text {

namespace {

/// Where a definition ends whose first line is given. A line that is indented less ends it, but for its
/// blanks.
int definitionEnd(const SourceText& list, Line line, Span indent)
{
    while (list.hasNext(line)) {
        const Line next = list.next(line);
        if (!list.holds(next.start, next.end, indent)) {
            const int behindBlanks = list.skip(next.start, next.end, isHorizontalSpace);
            if (behindBlanks != next.end)
                return behindBlanks;
        }
        line = next;
    }
    return line.end;
}

} // namespace

std::vector<Hit> findDefinitionItems(const SourceText& list)
{
    std::vector<Hit> items;
    int start = 0;
    for (;;) {
        const Line term = list.lineAt(start);
        if (!list.hasNext(term))
            return items;
        const Line line = list.next(term);
        const Span indent = {line.start, list.skip(line.start, line.end, isHorizontalSpace)};
        const bool isTerm =
            list.skip(term.start, term.end, [](char16_t c) { return !isWord(c); }) != term.end;
        if (!isTerm || indent.length() == 0 || indent.end == line.end || !isWord(list[indent.end])) {
            start = line.start;
            continue;
        }
        Hit item;
        item.groups[0] = term;
        item.groups[1] = {line.start, definitionEnd(list, line, indent)};
        item.whole = {term.start, item.groups[1].end};
        items.push_back(item);
        start = item.whole.end;
    }
}

} // namespace Halvorin::Text
