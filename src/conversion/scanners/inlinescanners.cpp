#include "conversion/scanners/inlinescanners.h"

#include <QStringView>
#include <string_view>

namespace Halvorin::Text {

namespace {

bool isOneOf(std::u16string_view characters, char16_t c)
{
    return characters.find(c) != std::u16string_view::npos;
}

bool isNoSpace(char16_t c)
{
    return !isSpace(c);
}

/// The marks that close emphasis, by their kind: each is looked for once.
class ClosingMarks
{
public:
    /// The first one from a place on, the end of the text for none.
    int find(const SourceText& text, char16_t mark, int length, int from)
    {
        Known& known = m_known[(mark == u'`' ? 2 : 0) + length - 1];
        if (from < known.from || from > known.closing) {
            known.from = from;
            known.closing = search(text, mark, length, from);
        }
        return known.closing;
    }

private:
    struct Known
    {
        int from = 0;
        int closing = -1;
    };

    static int search(const SourceText& text, char16_t mark, int length, int from)
    {
        for (int at = from; at + length <= text.size(); ++at) {
            if (text[at] != mark || (length == 2 && text[at + 1] != mark))
                continue;
            const char16_t before = text[at - 1];
            if (isSpace(before) || before == u'\\')
                continue;
            const int behind = at + length;
            if (behind == text.size() || isSpace(text[behind]) || isOneOf(u"-.,:;!?\\/'\")]}>", text[behind]))
                return at;
        }
        return text.size();
    }

    Known m_known[4];
};

/// Whether emphasis of one kind of mark opens at a place.
bool takeEmphasis(SourceText& text, ClosingMarks& marks, int at, int length, Hit& hit)
{
    const int content = at + length;
    if (content >= text.size() || isSpace(text[content]))
        return false;
    const int closing = marks.find(text, text[at], length, content + 1);
    if (closing >= text.size() || text.lineEnd(content) < closing)
        return false;
    hit.whole = {at, closing + length};
    hit.groups[0] = {at, content};
    hit.groups[1] = {content, closing};
    return true;
}

} // namespace

bool findEmphasis(SourceText& text, int from, Hit& hit)
{
    ClosingMarks& marks = text.memory<ClosingMarks>();
    for (int at = from; at < text.size(); ++at) {
        const char16_t mark = text[at];
        if (mark != u'*' && mark != u'`')
            continue;
        if (at > 0 && !isSpace(text[at - 1]) && !isOneOf(u"-:/'\"<([{", text[at - 1]))
            continue;
        const bool isDouble = at + 1 < text.size() && text[at + 1] == mark;
        if ((isDouble && takeEmphasis(text, marks, at, 2, hit)) || takeEmphasis(text, marks, at, 1, hit))
            return true;
    }
    return false;
}

bool findEscape(SourceText& text, int from, Hit& hit)
{
    for (int at = text.find(u"\\", from); at >= 0 && at + 1 < text.size(); at = text.find(u"\\", at + 1)) {
        if (text[at + 1] == u'\n')
            continue;
        const bool isPair = QChar::isHighSurrogate(text[at + 1]) && at + 2 < text.size() &&
                            QChar::isLowSurrogate(text[at + 2]);
        hit.whole = {at, at + (isPair ? 3 : 2)};
        hit.groups[0] = {at + 1, hit.whole.end};
        return true;
    }
    return false;
}

namespace {

/// The addresses of links with text: "<https://...>`_".
class LinkTargets
{
public:
    /// Where the next one begins, and where it is closed; -1 for none.
    Span find(const SourceText& text, int from)
    {
        if (!m_isSearched || from < m_from || (from > m_target.start && !m_target.isNull())) {
            m_isSearched = true;
            m_from = from;
            m_target = search(text, from);
        }
        return m_target;
    }

private:
    Span search(const SourceText& text, int from)
    {
        const std::u16string_view opening = u"<https://";
        const int size = static_cast<int>(opening.size());
        for (int at = text.find(opening, from); at >= 0; at = text.find(opening, at + 1)) {
            if (at >= m_runEnd) { // of characters without space: the last closing in it counts
                m_runEnd = text.skip(at, text.size(), isNoSpace);
                m_closing = m_runEnd - 3;
                while (m_closing > at && !text.startsAt(m_closing, QStringLiteral(">`_")))
                    --m_closing;
            }
            if (m_closing > at + size)
                return {at, m_closing};
        }
        return {};
    }

    int m_from = 0;
    Span m_target;
    bool m_isSearched = false;
    int m_runEnd = 0;
    int m_closing = 0;
};

} // namespace

bool findLinkWithText(SourceText& text, int from, Hit& hit)
{
    LinkTargets& targets = text.memory<LinkTargets>();
    for (int at = text.find(u"`", from); at >= 0; at = text.find(u"`", at + 1)) {
        const Span target = targets.find(text, at + 1);
        if (target.isNull())
            return false;
        if (target.start > text.lineEnd(at))
            continue;
        const bool hasBlank = target.start > at + 1 && isHorizontalSpace(text[target.start - 1]);
        hit.whole = {at, target.end + 3};
        hit.groups[0] = {at + 1, target.start - (hasBlank ? 1 : 0)};
        hit.groups[1] = {target.start + 1, target.end};
        return true;
    }
    return false;
}

namespace {

/// The end of the characters without space that a place is in, for places that mostly grow.
class RunEnds
{
public:
    int behind(const SourceText& text, int at)
    {
        if (at < m_from || at > m_end) {
            m_from = at;
            m_end = text.skip(at, text.size(), isNoSpace);
        }
        return m_end;
    }

private:
    int m_from = 0;
    int m_end = -1;
};

} // namespace

bool findBareLink(SourceText& text, int from, Hit& hit)
{
    const std::u16string_view scheme = u"https://";
    const int size = static_cast<int>(scheme.size());
    for (int at = text.find(scheme, from); at >= 0; at = text.find(scheme, at + 1)) {
        const int end = text.memory<RunEnds>().behind(text, at + size);
        if (end == at + size)
            continue;
        hit.whole = {at, end};
        return true;
    }
    return false;
}

bool findCrossReference(SourceText& text, int from, Hit& hit)
{
    const std::u16string_view role = u":ref:`";
    for (int at = text.find(role, from); at >= 0; at = text.find(role, at + 1)) {
        const int content = at + static_cast<int>(role.size());
        const int closing = text.find(u"`", content);
        if (closing < 0)
            return false;
        if (text.skip(content, closing, [](char16_t c) { return c != u'\n'; }) < closing)
            continue;
        hit.whole = {at, closing + 1};
        return true;
    }
    return false;
}

} // namespace Halvorin::Text
