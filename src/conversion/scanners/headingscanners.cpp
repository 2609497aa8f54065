#include "conversion/scanners/blockscanners.h"

namespace Halvorin::Text {

namespace {

constexpr bool isHeadingType(char16_t c)
{
    return c == u'#' || c == u'*' || c == u'=' || c == u'-' || c == u'^' || c == u'"';
}

/// Behind the run of one heading character that a line begins with; its start when it begins with none.
int behindRule(const SourceText& text, Line line)
{
    if (line.length() == 0 || !isHeadingType(text[line.start]))
        return line.start;
    const char16_t type = text[line.start];
    return text.skip(line.start, line.end, [type](char16_t c) { return c == type; });
}

} // namespace

bool scanOverlinedHeading(SourceText& text, Hit& hit)
{
    const Line over = text.lineAt(text.position());
    const int behind = behindRule(text, over);
    if (behind == over.start || !text.hasNext(over) || text.skip(behind, over.end, isBlank) != over.end)
        return false;
    const Line title = text.next(over);
    if (!text.hasNext(title))
        return false;
    const Line under = text.next(title);
    if (under.length() == 0 || text[under.start] != text[over.start] || behindRule(text, under) != under.end)
        return false;
    hit.whole = {over.start, under.end};
    hit.groups[0] = {over.start, over.start + 1};
    hit.groups[1] = title;
    return true;
}

bool scanUnderlinedHeading(SourceText& text, Hit& hit)
{
    const Line title = text.lineAt(text.position());
    if (!text.hasNext(title))
        return false;
    const Line under = text.next(title);
    const int behind = behindRule(text, under);
    if (behind == under.start || text.skip(behind, under.end, isBlank) != under.end ||
        text.skip(title.start, title.end, [](char16_t c) { return !isWord(c); }) == title.end)
        return false;
    hit.whole = {title.start, under.end};
    hit.groups[0] = {under.start, under.start + 1};
    hit.groups[1] = title;
    return true;
}

bool scanDirective(SourceText& text, Hit& hit)
{
    const Line first = text.lineAt(text.position());
    const Span indent = {first.start, text.skip(first.start, first.end, isBlank)};
    int at = indent.end;
    for (const char16_t wanted : {u'.', u'.', u' '})
        if (at == first.end || text[at++] != wanted)
            return false;
    const Span name = {at, text.skip(at, first.end, isWord)};
    at = name.end;
    for (const char16_t wanted : {u':', u':', u' '})
        if (at == first.end || text[at++] != wanted)
            return false;
    if (name.length() == 0)
        return false;

    hit.groups[0] = name;
    hit.groups[1] = {};
    int end = at;
    if (text.hasNext(first)) { // a value without a line feed behind it is none
        end = first.end + 1;
        hit.groups[1] = {at, end};
    }
    hit.groups[2] = {end, end};
    for (Line line = first; text.hasNext(line);) {
        line = text.next(line);
        const int behindIndent = line.start + indent.length();
        if (!text.holds(line.start, line.end, indent) || behindIndent >= line.end ||
            !isBlank(text[behindIndent]))
            break;
        end = text.hasNext(line) ? line.end + 1 : line.end;
    }
    hit.groups[2].end = end;
    hit.whole = {first.start, end};
    return true;
}

} // namespace Halvorin::Text
