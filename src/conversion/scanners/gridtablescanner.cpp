#include "conversion/scanners/blockscanners.h"

#include <algorithm>
#include <map>
#include <vector>

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

/// The lines that may close grid tables, by their indent: found once for a text.
class GridEnds
{
public:
    /// The first line from a place on that closes a table of an indent; the size of the text for none.
    int next(const SourceText& text, int from, Span indent)
    {
        if (!m_isFound)
            findAll(text);
        const auto found = m_byIndent.find(text.ref(indent).toString());
        if (found == m_byIndent.end())
            return text.size();
        const auto line = std::ranges::lower_bound(found->second, from);
        return line == found->second.end() ? text.size() : *line;
    }

private:
    void findAll(const SourceText& text)
    {
        m_isFound = true;
        for (Line line = text.lineAt(0);; line = text.next(line)) {
            const Span indent = {line.start, text.skip(line.start, line.end, isBlank)};
            if (isGridBorder(text, indent.end, line.end) && mayEndTable(text, line))
                m_byIndent[text.ref(indent).toString()].push_back(line.start);
            if (!text.hasNext(line))
                break;
        }
    }

    bool m_isFound = false;
    std::map<QString, std::vector<int>> m_byIndent;
};

} // namespace

bool scanGridTable(SourceText& text, Hit& hit)
{
    const Line first = text.lineAt(text.position());
    const Span indent = {first.start, text.skip(first.start, first.end, isBlank)};
    if (!isGridBorder(text, indent.end, first.end) || !text.hasNext(first))
        return false;
    const int closing = text.memory<GridEnds>().next(text, first.end + 1, indent);
    if (closing == text.size())
        return false;
    const Line last = text.lineAt(closing);
    hit.whole = {first.start, text.hasNext(last) ? text.next(last).end : last.end};
    hit.groups[0] = indent;
    return true;
}

} // namespace Halvorin::Text
