#ifndef GRIDCORNERS_H
#define GRIDCORNERS_H

#include "conversion/rstgridtable.h"

#include <QVector>

namespace Halvorin::Text::detail {

/// The lines of a grid table behind its indent, as wide as its first border.
struct GridView
{
    GridView(const QStringRef& text, const QStringRef& indent);

    /// Null where the line is not that long.
    QChar at(int column, int row) const
    {
        const QStringRef& line = lines[row];
        return indentWidth + column < line.size() ? line.at(indentWidth + column) : QChar();
    }

    QVector<QStringRef> lines;
    int indentWidth;
    int width;
};

/// The places of the cells, by their top left corners, row by row.
std::vector<RSTGridTable::CellLocation> findCellLocations(const GridView& view);

} // namespace Halvorin::Text::detail

#endif
