#include "conversion/scanners/blockscanners.h"
#include "conversion/scanners/simpleborders.h"

#include <algorithm>

namespace Halvorin::Text {

namespace {

/// The end of "=== ===" with the blanks behind it, -1 for something else: it is all that its line has.
int simpleBorderEnd(const SourceText& text, int start)
{
    const auto isRule = [](char16_t c) { return c == u'='; };
    int columns = 0;
    int at = start;
    while (at < text.size() && isRule(text[at])) {
        ++columns;
        at = text.skip(text.skip(at, text.size(), isRule), text.size(), isHorizontalSpace);
    }
    return columns >= 2 && at < text.size() && isLineEnd(text[at]) ? at : -1;
}

/// The starts of a border in a text.
class BorderSearch
{
public:
    BorderSearch(const SourceText& text, int length, const BorderPlaces& places)
        : m_text(text), m_length(length), m_places(places)
    {}

    /// The first one from a position on, before a limit; -1 for none.
    int next(int from, int limit) const
    {
        const auto end = std::ranges::lower_bound(m_places.ends, from + m_length);
        return end != m_places.ends.end() && *end < limit + m_length ? *end - m_length : -1;
    }
    /// The last one that ends by a position; -1 for none.
    int previous(int end) const
    {
        const auto behind = std::ranges::upper_bound(m_places.ends, end);
        return behind != m_places.ends.begin() ? *(behind - 1) - m_length : -1;
    }
    bool closes(int start) const { return closesSimpleTable(m_text, start + m_length); }

private:
    const SourceText& m_text;
    int m_length;
    const BorderPlaces& m_places;
};

/// The last word of a line before a place; it is asked for again and again.
class LastWord
{
public:
    explicit LastWord(const SourceText& text) : m_text(text) {}

    bool standsBetween(int start, int end)
    {
        if (m_end != end) {
            m_end = end;
            m_word = end - 1;
            while (m_word >= 0 && m_text[m_word] != u'\n' && !isWord(m_text[m_word]))
                --m_word;
        }
        return m_word >= start && isWord(m_text[m_word]);
    }

private:
    const SourceText& m_text;
    int m_end = -1;
    int m_word = -1;
};

} // namespace

bool scanSimpleTable(SourceText& text, Hit& hit)
{
    const Span border = {text.position(), simpleBorderEnd(text, text.position())};
    if (border.end < 0)
        return false;
    const Line first = text.lineAt(text.behindLineEnd(border.end));
    const int firstWord = text.skip(first.start, first.end, [](char16_t c) { return !isWord(c); });
    if (firstWord == first.end)
        return false;
    const BorderPlaces& places = text.memory<SimpleBorders>().of(text, border);
    const BorderSearch borders(text, border.length(), places);
    const int lastClosing = places.lastClosing;

    LastWord word(text);
    // Content has a word in its first line. It goes on to the first border that closes behind that line, or
    // else to the last one in it.
    const auto takeContent = [&](Line line) {
        if (!word.standsBetween(line.start, std::min(line.end, lastClosing)))
            return false;
        int closing = lastClosing;
        if (lastClosing > line.end) {
            closing = borders.next(line.end + 1, lastClosing + 1);
            while (!borders.closes(closing))
                closing = borders.next(closing + 1, lastClosing + 1);
        }
        hit.whole = {border.start, closing + border.length()};
        hit.groups = {border, {}, {line.start, closing}};
        return true;
    };
    const auto takeHeader = [&](int end, Line line) {
        if (!takeContent(line))
            return false;
        hit.groups[1] = {first.start, end};
        return true;
    };

    // So does a header, to the first border behind its first line that content follows, or else to the last.
    Line line = first;
    for (int at = borders.next(first.end + 1, lastClosing); at >= 0; at = borders.next(at + 1, lastClosing)) {
        const int start = text.behindLineEnd(at + border.length());
        line = {start, start > line.end ? text.lineEnd(start) : line.end};
        if (takeHeader(at, line))
            return true;
    }
    for (int at = borders.previous(std::min(first.end, lastClosing)); at > firstWord;
         at = borders.previous(at + border.length() - 1)) {
        const int start = text.behindLineEnd(at + border.length());
        if (takeHeader(at, start > first.end ? text.lineAt(start) : Line{start, first.end}))
            return true;
    }
    return takeContent(first);
}

} // namespace Halvorin::Text
