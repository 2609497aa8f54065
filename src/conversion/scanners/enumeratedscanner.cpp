#include "conversion/scanners/enumeratedscanner.h"

#include <string_view>

namespace Halvorin::Text {

namespace {

constexpr std::u16string_view upperRoman = u"IVXLCDM";
constexpr std::u16string_view lowerRoman = u"ivxlcdm";

constexpr char16_t closing(MarkerForm form)
{
    return form == MarkerForm::period ? u'.' : u')';
}

/// Behind a marker whose inside `behindInside` finds the end of, and that horizontal space follows; -1 for
/// none.
template <class Inside>
int behindMarker(const SourceText& text, int at, int end, MarkerForm form, Inside&& behindInside)
{
    if (form == MarkerForm::enclosingParentheses && (at == end || text[at++] != u'('))
        return -1;
    const int behind = behindInside(at);
    if (behind == at || behind + 1 >= end || text[behind] != closing(form) ||
        !isHorizontalSpace(text[behind + 1]))
        return -1;
    return behind + 1;
}

/// Sorts the lines of a list. Positions are behind the list's indent.
class Rows
{
public:
    Rows(const SourceText& text, const Marker& marker, Span indent)
        : m_text(text), m_marker(marker), m_indent(indent)
    {}

    bool isIndented(Line line) const { return m_text.holds(line.start, line.end, m_indent); }
    bool isMarked(Line line) const
    {
        return behindMarker(m_text, inner(line), line.end, m_marker.form, [&](int at) {
                   return m_marker.isOneCharacter()
                              ? (at < line.end && m_marker.holds(m_text[at]) ? at + 1 : at)
                              : m_text.skip(at, line.end, [this](char16_t c) { return m_marker.holds(c); });
               }) >= 0;
    }
    /// Of the marker for one.
    bool isFirst(Line line) const
    {
        const char16_t one = m_marker.isUpperCase ? u'I' : u'i';
        return behindMarker(m_text, inner(line), line.end, m_marker.form,
                            [&](int at) { return at < line.end && m_text[at] == one ? at + 1 : at; }) >= 0;
    }
    bool isAutomatic(Line line) const
    {
        return behindMarker(m_text, inner(line), line.end, m_marker.form,
                            [&](int at) { return at < line.end && m_text[at] == u'#' ? at + 1 : at; }) >= 0;
    }
    bool isDeeper(Line line) const
    {
        return inner(line) < line.end && isHorizontalSpace(m_text[inner(line)]);
    }
    /// Nothing behind the indent.
    bool isEnd(Line line) const { return inner(line) == line.end; }

private:
    int inner(Line line) const { return line.start + m_indent.length(); }

    const SourceText& m_text;
    const Marker& m_marker;
    Span m_indent;
};

} // namespace

QString Marker::characterClass() const
{
    switch (kind) {
    case EnumeratedKind::numeric:
        return QStringLiteral("\\d");
    case EnumeratedKind::romanNumeral:
        return isUpperCase ? QStringLiteral("[IVXLCDM]") : QStringLiteral("[ivxlcdm]");
    case EnumeratedKind::alphabetic:
        break;
    }
    return isUpperCase ? QStringLiteral("[A-Z]") : QStringLiteral("[a-z]");
}

bool Marker::holds(char16_t c) const
{
    switch (kind) {
    case EnumeratedKind::numeric:
        return isDigit(c);
    case EnumeratedKind::romanNumeral:
        return (isUpperCase ? upperRoman : lowerRoman).find(c) != std::u16string_view::npos;
    case EnumeratedKind::alphabetic:
        break;
    }
    return isUpperCase ? isUpperLetter(c) : isLowerLetter(c);
}

bool scanEnumeratedList(SourceText& text, const Marker& marker, Hit& hit)
{
    Line line = text.lineAt(text.position());
    const Rows rows(text, marker, {line.start, text.skip(line.start, line.end, isBlank)});
    if (marker.kind == EnumeratedKind::romanNumeral ? !rows.isFirst(line) : !rows.isMarked(line))
        return false;

    // A row with a marker counts only if what follows the rows with markers may stand in a list.
    const auto mayFollow = [&](Line next) {
        return text.isAllHorizontalSpace(next) ||
               (rows.isIndented(next) && (rows.isAutomatic(next) || rows.isDeeper(next)));
    };
    int markedEnd = -1; // of the rows with markers that are known to count
    const auto countsMarked = [&](Line row) {
        if (row.end <= markedEnd)
            return true;
        while (text.hasNext(row)) {
            const Line next = text.next(row);
            if (!rows.isIndented(next) || !rows.isMarked(next)) {
                if (!mayFollow(next))
                    return false;
                break;
            }
            row = next;
        }
        markedEnd = row.end;
        return true;
    };
    if (!countsMarked(line))
        return false;

    hit.whole.start = hit.groups[0].start = line.start;
    const auto takeRows = [&](auto&& isRow) {
        while (text.hasNext(line)) {
            const Line next = text.next(line);
            if (!rows.isIndented(next) || !(rows.isDeeper(next) || rows.isEnd(next) || isRow(next)))
                break;
            line = next;
        }
        return line.end;
    };
    hit.groups[0].end = takeRows([&](Line next) { return rows.isMarked(next) && countsMarked(next); });
    hit.groups[1].start = hit.groups[0].end;
    hit.groups[1].end = takeRows([&](Line next) { return rows.isAutomatic(next); });
    hit.whole.end = hit.groups[1].end;
    return true;
}

namespace {

/// Items of which the first that is found from a place on begins earliest. `insideStart` gives where the
/// inside of a marker begins that is closed at a place and has begun at a bound at the earliest; the closing
/// itself for none.
template <class InsideStart>
std::vector<Hit> findItems(const SourceText& rows, MarkerForm form, InsideStart&& insideStart)
{
    std::vector<Hit> items;
    int bound = 0;
    const char16_t close = closing(form);
    for (int at = 0; at + 1 < rows.size(); ++at) {
        if (rows[at] != close || !isHorizontalSpace(rows[at + 1]))
            continue;
        const int inside = insideStart(at, bound);
        if (inside == at)
            continue;
        int start = inside;
        if (form == MarkerForm::enclosingParentheses) {
            if (inside == bound || rows[inside - 1] != u'(')
                continue;
            --start;
        }
        Span indent = {start, start};
        while (indent.start > bound && isBlank(rows[indent.start - 1]))
            --indent.start;
        Hit item;
        item.groups[0] = {inside, at};
        Line line = rows.lineAt(at + 2);
        item.groups[1] = line;
        while (rows.hasNext(line)) {
            line = rows.next(line);
            const int behindIndent = line.start + indent.length();
            if (!rows.holds(line.start, line.end, indent) || behindIndent >= line.end ||
                !isHorizontalSpace(rows[behindIndent]))
                break;
            item.groups[1].end = line.end;
        }
        item.whole = {indent.start, item.groups[1].end};
        items.push_back(item);
        bound = item.whole.end;
        at = bound - 1;
    }
    return items;
}

} // namespace

std::vector<Hit> findMarkedItems(const SourceText& rows, const Marker& marker)
{
    return findItems(rows, marker.form, [&](int close, int bound) {
        int start = close;
        while (start > bound && marker.holds(rows[start - 1]) && !(marker.isOneCharacter() && start < close))
            --start;
        return start;
    });
}

std::vector<Hit> findAutomaticItems(const SourceText& rows, MarkerForm form)
{
    std::vector<Hit> items = findItems(rows, form, [&](int close, int bound) {
        return close > bound && rows[close - 1] == u'#' ? close - 1 : close;
    });
    for (Hit& item : items)
        item.groups[0] = {};
    return items;
}

} // namespace Halvorin::Text
