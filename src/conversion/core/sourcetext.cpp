#include "conversion/core/sourcetext.h"

#include <QStringView>
#include <algorithm>

namespace Halvorin::Text {

SourceText::SourceText(const QStringRef& source)
    : m_source(source), m_data(source.unicode()), m_size(source.size())
{
    for (int position = m_size; position-- > 0;)
        if (isOtherLineEnd(m_data[position].unicode())) {
            m_lastOtherLineEnd = position;
            break;
        }
}

bool SourceText::isWellFormed() const
{
    if (!m_isWellFormed)
        m_isWellFormed = m_source.toString().isValidUtf16();
    return *m_isWellFormed;
}

QStringRef SourceText::ref(Span span) const
{
    return span.isNull() ? QStringRef() : m_source.mid(span.start, span.length());
}

Line SourceText::previous(Line line) const
{
    const int end = line.start - 1;
    return {static_cast<int>(QStringView(m_data, end).lastIndexOf(u'\n')) + 1, end};
}

int SourceText::lineEnd(int from) const
{
    for (const Line& line : m_lastLines)
        if (line.start <= from && from <= line.end)
            return line.end;
    const qsizetype found = QStringView(m_data + from, m_size - from).indexOf(u'\n');
    const int end = found < 0 ? m_size : from + static_cast<int>(found);
    m_lastLines[1] = m_lastLines[0];
    m_lastLines[0] = {from, end};
    return end;
}

int SourceText::behindLineEnd(int position) const
{
    if (position == m_size)
        return position;
    const char16_t c = (*this)[position];
    if (c == u'\r' && position + 1 < m_size && (*this)[position + 1] == u'\n')
        return position + 2;
    return isLineEnd(c) ? position + 1 : position;
}

bool SourceText::holds(int position, int end, Span wanted) const
{
    return end - position >= wanted.length() &&
           std::equal(m_data + wanted.start, m_data + wanted.end, m_data + position);
}

int SourceText::find(std::u16string_view word, int from) const
{
    const QStringView rest(m_data + from, m_size - from);
    const qsizetype found = word.size() == 1
                                ? rest.indexOf(QChar(word.front()))
                                : rest.indexOf(QStringView(word.data(), static_cast<qsizetype>(word.size())));
    return found < 0 ? -1 : from + static_cast<int>(found);
}

bool SourceText::startsAt(int position, const QString& word) const
{
    return m_size - position >= word.size() && std::equal(word.begin(), word.end(), m_data + position);
}

} // namespace Halvorin::Text
