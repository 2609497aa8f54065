#include "conversion/simpletable.h"

#include "conversion/core/allowance.h"
#include "conversion/core/characterclasses.h"
#include "conversion/core/conversionlibrary.h"
#include "conversion/paragraphtags.h"
#include "unicode/wholecharacters.h"

#include <QVector>
#include <vector>

namespace Halvorin::Text {

namespace {

struct Column
{
    int start;
    int length;

    int end() const { return start + length; }
};

using Columns = std::vector<Column>;

/// The runs of a character in a line.
Columns runsOf(QChar c, const QStringRef& line)
{
    Columns runs;
    for (int at = 0; at < line.size();) {
        int end = at;
        while (end < line.size() && line.at(end) == c)
            ++end;
        if (end > at)
            runs.push_back({at, end - at});
        at = end + 1;
    }
    return runs;
}

/// Whether a line says which columns the row above it joins: it begins with dashes and blanks, whatever
/// follows.
bool isSpanLine(const QStringRef& line)
{
    for (const QChar c : line) {
        if (c == QLatin1Char('-'))
            return true;
        if (!isHorizontalSpace(c.unicode()))
            return false;
    }
    return false;
}

/// "<td></td>"
constexpr int charactersOfCell = 9;

/// Rows of one kind of cell. Each line of a row gives a blank to each cell, and a row has a cell for each
/// column, whether or not the text reaches it: such blanks and cells are for the allowance.
class RowWriter
{
public:
    RowWriter(const ConversionLibrary& library, const Columns& columns, const char* tag)
        : m_library(library), m_columns(columns), m_tag(tag)
    {}

    QString toHtml(const QStringRef& text)
    {
        const QVector<QStringRef> lines = text.split(QLatin1Char('\n'));
        QString result;
        for (int first = 0; first < lines.size();) {
            int end = first + 1; // of the lines of this row
            while (end < lines.size() && !isSpanLine(lines[end]) && continuesRow(lines[end]))
                ++end;
            const bool hasSpans = end < lines.size() && isSpanLine(lines[end]);
            const Columns spans = hasSpans ? runsOf(QLatin1Char('-'), lines[end]) : Columns();
            result += row(lines.mid(first, end - first), spans);
            first = hasSpans ? end + 1 : end;
        }
        return result;
    }

private:
    bool continuesRow(const QStringRef& line) const
    {
        const QStringRef text =
            m_columns.size() == 1 ? line : line.mid(m_columns.front().start, m_columns.front().length);
        return text.trimmed().isEmpty();
    }

    QString row(const QVector<QStringRef>& lines, const Columns& spans)
    {
        const Columns& layout = spans.empty() ? m_columns : spans;
        const std::vector<QString> cells = cellTexts(lines, layout);
        QString result = QStringLiteral("<tr>");
        std::size_t cursor = 0;
        for (std::size_t index = 0; index < layout.size(); ++index) {
            if (index >= cells.size() && !Allowance::current().takeAllCharacters(charactersOfCell))
                break;
            result += QLatin1Char('<') + m_tag;
            if (!spans.empty())
                result += span(spans[index], cursor);
            result += QLatin1Char('>');
            if (index < cells.size())
                result += withoutSurroundingParagraphTags(m_library.convertBlocks(cells[index], 0));
            result += QLatin1String("</") + m_tag + QLatin1Char('>');
        }
        return result += QLatin1String("</tr>");
    }

    /// The texts of the cells that a line reaches. The others have blanks alone, which convert to nothing.
    std::vector<QString> cellTexts(const QVector<QStringRef>& lines, const Columns& layout)
    {
        std::vector<QString> texts;
        std::vector<int> linesOf; // that each cell has
        for (int index = 0; index < lines.size(); ++index) {
            const QStringRef& line = lines[index];
            for (std::size_t at = 0; at < layout.size() && layout[at].start < line.size(); ++at) {
                if (at == texts.size()) {
                    texts.emplace_back();
                    linesOf.push_back(0);
                }
                appendBlanks(texts[at], index - linesOf[at]);
                linesOf[at] = index + 1;
                const bool isLast = at + 1 == layout.size();
                texts[at] += line.mid(layout[at].start, isLast ? -1 : layout[at].length) + QLatin1Char(' ');
            }
        }
        for (std::size_t at = 0; at < texts.size(); ++at) {
            appendBlanks(texts[at], lines.size() - linesOf[at]);
            texts[at] = wholeCharacters(std::move(texts[at])); // a border may cut one in two
        }
        return texts;
    }

    void appendBlanks(QString& text, int lines)
    {
        text += QString(Allowance::current().takeCharacters(lines), QLatin1Char(' '));
    }

    /// The attribute of a cell that joins columns, from the cursor to the one that ends where the span does.
    /// A span of one column leaves the cursor where it is.
    QString span(Column span, std::size_t& cursor) const
    {
        std::size_t found = cursor;
        while (found < m_columns.size() && m_columns[found].end() != span.end())
            ++found;
        if (found <= cursor)
            return QString();
        const std::size_t count = found - cursor + 1;
        cursor = found + 1;
        return QLatin1String(" colspan=\"") + QString::number(count) + QLatin1Char('"');
    }

    const ConversionLibrary& m_library;
    const Columns& m_columns;
    QLatin1String m_tag;
};

} // namespace

QString simpleTableToHtml(const ConversionLibrary& library, const QStringRef& border,
                          const QStringRef& header, const QStringRef& content)
{
    const Columns columns = runsOf(QLatin1Char('='), border);
    QString result = QStringLiteral("<table>");
    if (!header.isNull())
        result += RowWriter(library, columns, "th").toHtml(header);
    result += RowWriter(library, columns, "td").toHtml(content);
    return result += QLatin1String("</table>");
}

} // namespace Halvorin::Text
