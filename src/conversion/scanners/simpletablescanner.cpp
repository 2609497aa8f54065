#include "conversion/scanners/blockscanners.h"

#include <algorithm>
#include <map>

namespace Halvorin::Text {

namespace {

/// Where the border stands that closes the last table of a border, -1 for nowhere.
struct SimpleEnds
{
    std::map<QString, int> byBorder;
};

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

/// Looks for a border, which counts wherever it ends a line, whatever that line ends with.
class SimpleBorders
{
public:
    SimpleBorders(const SourceText& text, Span border) : m_text(text), m_border(border) {}

    int length() const { return m_border.length(); }

    /// The first border from a position on that ends a line, before a limit; -1 for none.
    int next(int from, int limit) const
    {
        for (int end = from; end < limit + length() && end <= m_text.size(); ++end)
            if ((end == m_text.size() || isLineEnd(m_text[end])) && standsBefore(end, from))
                return end - length();
        return -1;
    }
    /// The last one that ends by a position.
    int previous(int end, int from) const
    {
        for (; end - length() >= from; --end)
            if ((end == m_text.size() || isLineEnd(m_text[end])) && standsBefore(end, from))
                return end - length();
        return -1;
    }
    /// Behind a border is a blank line, or nothing.
    bool closes(int start) const
    {
        const int end = start + length();
        if (end == m_text.size())
            return true;
        const int behind = m_text.skip(m_text.behindLineEnd(end), m_text.size(), isHorizontalSpace);
        return behind == m_text.size() || m_text[behind] == u'\n';
    }
    int lastClosing(int from) const
    {
        int last = previous(m_text.size(), from);
        while (last >= 0 && !closes(last))
            last = previous(last + length() - 1, from);
        return last;
    }

private:
    bool standsBefore(int end, int from) const
    {
        return end - length() >= from && m_text.holds(end - length(), end, m_border);
    }

    const SourceText& m_text;
    Span m_border;
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
    const SimpleBorders borders(text, border);
    const auto known = text.memory<SimpleEnds>().byBorder.try_emplace(text.ref(border).toString(), -2).first;
    if (known->second == -2)
        known->second = borders.lastClosing(first.start);
    const int lastClosing = known->second;

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
    for (int at = borders.previous(std::min(first.end, lastClosing), first.start); at > firstWord;
         at = borders.previous(at + border.length() - 1, first.start)) {
        const int start = text.behindLineEnd(at + border.length());
        if (takeHeader(at, start > first.end ? text.lineAt(start) : Line{start, first.end}))
            return true;
    }
    return takeContent(first);
}

} // namespace Halvorin::Text
