#include "conversion/scanners/blockscanners.h"

#include <map>

namespace Halvorin::Text {

namespace {

/// Whether a table may end with a line: behind it is a blank line, or nothing.
bool mayEndTable(const SourceText& text, Line line)
{
    return !text.hasNext(line) || text.isAllHorizontalSpace(text.next(line));
}

/// Whether "+--+--+" and blanks are all that stands between two places.
bool isGridBorder(const SourceText& text, int at, int end)
{
    const auto isDash = [](char16_t c) { return c == u'-'; };
    if (at == end || text[at] != u'+')
        return false;
    int columns = 0;
    while (at < end && text[at] == u'+') {
        const int behind = text.skip(at + 1, end, isDash);
        if (behind == at + 1) {
            at = behind;
            break;
        }
        if (behind == end || text[behind] != u'+')
            return false;
        at = behind;
        ++columns;
    }
    return columns > 0 && text.skip(at, end, isBlank) == end;
}

/// Where the next line stands that closes a grid table of an indent, from a place on: it is asked for again
/// and again.
struct GridEnds
{
    struct End
    {
        int from;
        int line;
    };
    std::map<QString, End> byIndent;
};

/// The size of the text when there is none.
int findGridEnd(SourceText& text, Line line, Span indent)
{
    GridEnds::End& known = text.memory<GridEnds>()
                               .byIndent.try_emplace(text.ref(indent).toString(), GridEnds::End{-1, -1})
                               .first->second;
    if (known.from >= 0 && known.from <= line.start && line.start <= known.line)
        return known.line;
    known = {line.start, text.size()};
    for (;; line = text.next(line)) {
        if (text.holds(line.start, line.end, indent) &&
            isGridBorder(text, line.start + indent.length(), line.end) && mayEndTable(text, line)) {
            known.line = line.start;
            break;
        }
        if (!text.hasNext(line))
            break;
    }
    return known.line;
}

} // namespace

bool scanGridTable(SourceText& text, Hit& hit)
{
    const Line first = text.lineAt(text.position());
    const Span indent = {first.start, text.skip(first.start, first.end, isBlank)};
    if (!isGridBorder(text, indent.end, first.end) || !text.hasNext(first))
        return false;
    const int closing = findGridEnd(text, text.next(first), indent);
    if (closing == text.size())
        return false;
    const Line last = text.lineAt(closing);
    hit.whole = {first.start, text.hasNext(last) ? text.next(last).end : last.end};
    hit.groups[0] = indent;
    return true;
}

} // namespace Halvorin::Text
