#ifndef SOURCETEXT_H
#define SOURCETEXT_H

#include "conversion/core/characterclasses.h"

#include <QStringRef>
#include <any>
#include <map>
#include <optional>
#include <string_view>
#include <typeindex>

namespace Halvorin::Text {

/// A place in a text, from its start to behind its end. Without either it is none.
struct Span
{
    int start = -1;
    int end = -1;

    bool isNull() const { return start < 0; }
    int length() const { return end - start; }
};

/// A line without its line feed.
using Line = Span;

/// A text that is converted step by step: rules look at what is left of it from the position on, and keep
/// what they have learnt of the whole for the steps to come. Positions count from the start of the whole
/// text.
class SourceText
{
public:
    explicit SourceText(const QStringRef& source);

    int size() const { return m_size; }
    char16_t operator[](int position) const { return m_data[position].unicode(); }
    QStringRef ref(Span span) const;

    int position() const { return m_position; }
    void moveTo(int position) { m_position = position; }
    QStringRef rest() const { return ref({m_position, m_size}); }

    /// Whether the rest is not for expressions: it has no end of a line but line feeds, or is too long for
    /// them, or has halves of characters.
    bool isForScanners() const
    {
        return m_position > m_lastOtherLineEnd || m_size - m_position > longestForExpressions ||
               !isWellFormed();
    }
    /// Whether the rest has no halves of characters, on which expressions must not be tried without a check.
    bool isRestWellFormed() const
    {
        return isWellFormed() && !(m_position < m_size && m_data[m_position].isLowSurrogate());
    }

    Line lineAt(int start) const { return {start, lineEnd(start)}; }
    bool hasNext(Line line) const { return line.end < m_size; }
    /// The line behind one that has a line feed. It may be the empty one behind the last line feed.
    Line next(Line line) const { return lineAt(line.end + 1); }
    /// The line before one that is not the first.
    Line previous(Line line) const;
    /// The first line feed from a position on, or the end of the text.
    int lineEnd(int from) const;
    /// Behind what "\R" takes at a position, which is the position itself when there is none.
    int behindLineEnd(int position) const;

    /// Whether the same characters stand at a place as in a span.
    bool holds(int position, int end, Span wanted) const;
    /// Where a word stands first from a position on, -1 for nowhere.
    int find(std::u16string_view word, int from) const;
    bool startsAt(int position, const QString& word) const;
    /// Behind all characters of a class, not past an end.
    template <class Class>
    int skip(int from, int end, Class&& isIn) const
    {
        while (from < end && isIn((*this)[from]))
            ++from;
        return from;
    }
    bool isAllHorizontalSpace(Line line) const
    {
        return skip(line.start, line.end, isHorizontalSpace) == line.end;
    }
    bool isAllSpace(Line line) const { return skip(line.start, line.end, isSpace) == line.end; }

    /// What one kind of scanner has learnt of the text; made at the first call.
    template <class Memory>
    Memory& memory()
    {
        std::any& place = m_memories[typeid(Memory)];
        if (!place.has_value())
            place.template emplace<Memory>();
        return *std::any_cast<Memory>(&place);
    }

private:
    bool isWellFormed() const;

    static constexpr int longestForExpressions = 20'000;

    QStringRef m_source;
    const QChar* m_data;
    int m_size;
    int m_position = 0;
    int m_lastOtherLineEnd = -1;
    mutable std::optional<bool> m_isWellFormed; ///< once it was asked for
    mutable Line m_lastLines[2];                ///< from a place to its line's end: asked for again and again
    std::map<std::type_index, std::any> m_memories;
};

} // namespace Halvorin::Text

#endif
