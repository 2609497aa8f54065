#include "conversion/scanners/seealsoitems.h"

namespace Halvorin::Text {

namespace {

bool isInName(char16_t c)
{
    return c != u'\r' && c != u'\n' && c != u':';
}

/// The end of a description: its line, and the next one up to a colon if that is deeper than the name.
int descriptionEnd(const SourceText& section, Line line, Span indent)
{
    if (!section.hasNext(line))
        return line.end;
    const Line next = section.next(line);
    const int behindIndent = next.start + indent.length();
    if (!section.holds(next.start, next.end, indent) || behindIndent >= next.end ||
        !isHorizontalSpace(section[behindIndent]))
        return line.end;
    return section.skip(behindIndent, next.end, isInName);
}

} // namespace

std::vector<Hit> findSeeAlsoItems(const SourceText& section)
{
    std::vector<Hit> items;
    Line line = section.lineAt(0);
    int role = section.find(u":ref:", 0);
    for (int start = 0; start < section.size();) {
        line = start > line.end ? section.lineAt(start) : Line{start, line.end};
        if (role >= 0 && role < start)
            role = section.find(u":ref:", start);
        const bool isLineStart = start == 0 || section[start - 1] == u'\n';
        const Span indent = {start, section.skip(start, line.end, isHorizontalSpace)};
        const int nameEnd = section.skip(start, line.end, isInName);
        Hit item;
        if (isLineStart && nameEnd < line.end && section[nameEnd] == u':' && isWord(section[indent.end])) {
            item.groups[0] = {indent.end, nameEnd};
            while (isHorizontalSpace(section[item.groups[0].end - 1]))
                --item.groups[0].end;
            const int description = section.skip(nameEnd + 1, line.end, isHorizontalSpace);
            item.groups[1] = {description, descriptionEnd(section, section.lineAt(description), indent)};
            item.whole = {start, item.groups[1].end};
        } else if (nameEnd > start) {
            item.groups[0] = item.whole = {start, nameEnd};
        } else if (role >= 0 && role < line.end) {
            item.groups[0] = item.whole = line;
        } else { // what stops a name
            ++start;
            continue;
        }
        items.push_back(item);
        start = item.whole.end;
    }
    return items;
}

} // namespace Halvorin::Text
