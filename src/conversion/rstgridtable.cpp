#include "conversion/rstgridtable.h"

#include "conversion/core/conversionlibrary.h"
#include "conversion/gridcorners.h"
#include "conversion/paragraphtags.h"
#include "unicode/wholecharacters.h"

#include <algorithm>

namespace Halvorin::Text::detail {

namespace {

void sortDistinct(std::vector<std::int64_t>& values)
{
    std::ranges::sort(values);
    values.erase(std::unique(values.begin(), values.end()), values.end());
}

/// How many places two values of a sorted list lie apart.
std::uint64_t distance(const std::vector<std::int64_t>& sorted, std::int64_t from, std::int64_t to)
{
    return static_cast<std::uint64_t>(std::ranges::lower_bound(sorted, to) -
                                      std::ranges::lower_bound(sorted, from));
}

void appendSpan(QString& result, const char* name, std::uint64_t span)
{
    if (span > 1)
        result += QLatin1Char(' ') + QLatin1String(name) + QLatin1String("=\"") + QString::number(span) +
                  QLatin1Char('"');
}

} // namespace

RSTGridTable::RSTGridTable(const QStringRef& text, const QStringRef& indent)
{
    const GridView view(text, indent);
    const std::vector<CellLocation> locations = findCellLocations(view);
    std::vector<std::int64_t> borders; // that lie between rows
    for (const CellLocation& location : locations) {
        m_columns.insert(m_columns.end(), {location.left, location.right});
        borders.insert(borders.end(), {location.top, location.bottom});
        m_rows.push_back(location.top);
    }
    sortDistinct(m_columns);
    sortDistinct(borders);
    sortDistinct(m_rows);

    for (const CellLocation& location : locations) {
        Cell cell(location);
        cell.columnSpan = distance(m_columns, cell.left, cell.right);
        cell.rowSpan = distance(borders, cell.top, cell.bottom);
        cell.isHeader = view.at(cell.left + 1, cell.bottom) == QLatin1Char('=');
        for (int row = cell.top + 1; row < cell.bottom; ++row) {
            cell.content += view.lines[row].mid(view.indentWidth + cell.left + 1, cell.right - cell.left - 1);
            cell.content += QLatin1Char('\n');
        }
        cell.content = wholeCharacters(std::move(cell.content)); // a border may cut one in two
        m_cells.push_back(std::move(cell));
    }
}

QString RSTGridTable::toHTML(const ConversionLibrary& library) const
{
    QString result = QStringLiteral("<table>");
    auto cell = m_cells.begin();
    for (const std::int64_t row : m_rows) {
        result += QLatin1String("<tr>");
        for (; cell != m_cells.end() && cell->top == row; ++cell) {
            const QLatin1String tag(cell->isHeader ? "th" : "td");
            result += QLatin1Char('<') + tag;
            appendSpan(result, "rowspan", cell->rowSpan);
            appendSpan(result, "colspan", cell->columnSpan);
            result += QLatin1Char('>') +
                      withoutSurroundingParagraphTags(library.convertBlocks(cell->content, 0)) +
                      QLatin1String("</") + tag + QLatin1Char('>');
        }
        result += QLatin1String("</tr>");
    }
    return result += QLatin1String("</table>");
}

} // namespace Halvorin::Text::detail
