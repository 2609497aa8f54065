#include "conversion/scanners/blockscanners.h"

#include <map>

namespace Halvorin::Text {

namespace {

bool hasWord(const SourceText& text, Span span)
{
    return text.skip(span.start, span.end, [](char16_t c) { return !isWord(c); }) != span.end;
}

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

namespace {

/// The line of a border of a simple table: "=== ===", with blanks behind it.
bool isSimpleBorder(const SourceText& text, Line line)
{
    const auto isRule = [](char16_t c) { return c == u'='; };
    int columns = 0;
    int at = line.start;
    while (at < line.end && isRule(text[at])) {
        ++columns;
        at = text.skip(text.skip(at, line.end, isRule), line.end, isHorizontalSpace);
    }
    return columns >= 2 && at == line.end;
}

/// The last line that can close a table of a border, -1 for none.
struct SimpleEnds
{
    std::map<QString, int> byBorder;
};

/// Looks at lines for one border, which counts wherever it ends a line.
class SimpleTableLines
{
public:
    SimpleTableLines(const SourceText& text, Line border) : m_text(text), m_border(border) {}

    bool endsWithBorder(Line line) const
    {
        return line.length() >= m_border.length() &&
               m_text.holds(line.end - m_border.length(), line.end, m_border);
    }
    bool closes(Line line) const { return endsWithBorder(line) && mayEndTable(m_text, line); }
    /// Whether a word stands in the line, and before the border that ends it.
    bool hasWordAndBorder(Line line) const
    {
        return endsWithBorder(line) && hasWord(m_text, {line.start, borderStart(line)});
    }
    int borderStart(Line line) const { return line.end - m_border.length(); }

    /// The start of the last line that closes, from a line on.
    int findLastClosing(Line line) const
    {
        int last = -1;
        for (;; line = m_text.next(line)) {
            if (closes(line))
                last = line.start;
            if (!m_text.hasNext(line))
                return last;
        }
    }

private:
    const SourceText& m_text;
    Line m_border;
};

} // namespace

bool scanSimpleTable(SourceText& text, Hit& hit)
{
    const Line border = text.lineAt(text.position());
    if (border.length() == 0 || text[border.start] != u'=' || !isSimpleBorder(text, border) ||
        !text.hasNext(border))
        return false;
    const Line second = text.next(border);
    if (!hasWord(text, second))
        return false;
    const SimpleTableLines lines(text, border);
    const auto known = text.memory<SimpleEnds>().byBorder.try_emplace(text.ref(border).toString(), -2).first;
    if (known->second == -2)
        known->second = lines.findLastClosing(second);
    const int lastClosing = known->second;

    // Content is the lines up to one that closes, or else one line that has the border at its own end.
    const auto takeContent = [&](Line content) {
        if (!hasWord(text, content))
            return false;
        Line closing = content;
        if (text.hasNext(content) && text.next(content).start <= lastClosing) {
            do
                closing = text.next(closing);
            while (!lines.closes(closing));
        } else if (!lines.closes(content) || !lines.hasWordAndBorder(content)) {
            return false;
        }
        hit.whole = {border.start, closing.end};
        hit.groups = {border, {}, {content.start, lines.borderStart(closing)}};
        return true;
    };
    const auto takeHeader = [&](Line closing) {
        if (!text.hasNext(closing) || !takeContent(text.next(closing)))
            return false;
        hit.groups[1] = {second.start, lines.borderStart(closing)};
        return true;
    };

    for (Line line = second; text.hasNext(line) && line.end < lastClosing;) {
        line = text.next(line);
        if (lines.endsWithBorder(line) && takeHeader(line))
            return true;
    }
    return (lines.hasWordAndBorder(second) && takeHeader(second)) || takeContent(second);
}

} // namespace Halvorin::Text
