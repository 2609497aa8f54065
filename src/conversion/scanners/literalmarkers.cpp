#include "conversion/scanners/literalmarkers.h"

#include <algorithm>

namespace Halvorin::Text {

namespace {

/// By their characters.
int compare(const SourceText& text, Span left, Span right)
{
    return text.ref(left).compare(text.ref(right));
}

/// Where the marker stands that ends a line, -1 for none.
int markerOf(const SourceText& text, Line line)
{
    int end = line.end;
    while (end > line.start && isHorizontalSpace(text[end - 1]))
        --end;
    return end - line.start >= 2 && text[end - 1] == u':' && text[end - 2] == u':' ? end - 2 : -1;
}

/// The longest indent that a line is deeper than; null when it is not indented.
Span indentBelow(const SourceText& text, Line line)
{
    const int behind = text.skip(line.start, line.end, isHorizontalSpace);
    return behind == line.start ? Span() : Span{line.start, behind - 1};
}

/// The longest indent that all rows are deeper than, from a first one to a blank line or the end of the text.
Span indentBelowRows(const SourceText& text, Line row)
{
    Span indent = indentBelow(text, row);
    while (!indent.isNull() && text.hasNext(row)) {
        row = text.next(row);
        if (text.isAllHorizontalSpace(row))
            break;
        const Span other = indentBelow(text, row);
        if (other.isNull())
            return other;
        int common = 0;
        while (common < std::min(indent.length(), other.length()) &&
               text[indent.start + common] == text[other.start + common])
            ++common;
        indent.end = indent.start + common;
    }
    return indent;
}

} // namespace

LiteralGap::LiteralGap(const SourceText& text, Line markerLine) : behind(text.next(markerLine))
{
    for (; text.isAllHorizontalSpace(behind) && text.hasNext(behind); behind = text.next(behind)) {
        beforeLast = last;
        last = behind;
        ++count;
    }
    isBlankToTheEnd = text.isAllHorizontalSpace(behind);
}

bool mayBeginBlock(const LiteralGap& gap, int number)
{
    return number >= 2 && (gap.isBlankToTheEnd || number < gap.count);
}

int LiteralMarkers::last(const SourceText& text, Span indent)
{
    const auto [known, isNew] = m_last.try_emplace(text.ref(indent).toString(), -1);
    if (!isNew)
        return known->second;
    if (!m_areFound)
        findAll(text);
    auto announcement = std::ranges::lower_bound(
        m_announcements, indent, [&text](Span left, Span right) { return compare(text, left, right) < 0; },
        &Announcement::indents);
    for (; announcement != m_announcements.end() &&
           text.holds(announcement->indents.start, announcement->indents.end, indent);
         ++announcement)
        known->second = std::max(known->second, announcement->marker);
    return known->second;
}

void LiteralMarkers::findAll(const SourceText& text)
{
    m_areFound = true;
    for (Line line = text.lineAt(0); text.hasNext(line); line = text.next(line)) {
        const int marker = markerOf(text, line);
        if (marker < 0)
            continue;
        const LiteralGap gap(text, line);
        if (gap.count == 0)
            continue;
        announce(indentBelowRows(text, gap.behind), marker);
        Line blank = line;
        for (int number = 1; number <= gap.count; ++number) {
            blank = text.next(blank);
            if (mayBeginBlock(gap, number))
                announce(indentBelow(text, blank), marker);
        }
    }
    std::ranges::sort(
        m_announcements, [&text](Span left, Span right) { return compare(text, left, right) < 0; },
        &Announcement::indents);
}

void LiteralMarkers::announce(Span indents, int marker)
{
    if (!indents.isNull())
        m_announcements.push_back({indents, marker});
}

} // namespace Halvorin::Text
