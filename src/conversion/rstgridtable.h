#ifndef RSTGRIDTABLE_H
#define RSTGRIDTABLE_H

#include <QString>
#include <QStringRef>
#include <cstdint>
#include <vector>

namespace Halvorin::Text {

class ConversionLibrary;

namespace detail {

/// The cells of a grid table, read by walking along its borders. Borders that lead nowhere make no cells: a
/// broken table has fewer of them, or none.
class RSTGridTable
{
public:
    /// The corners of a cell, in characters: columns from the end of the indent, rows from the first line.
    class CellLocation
    {
    public:
        CellLocation(std::int32_t leftOf, std::int32_t topOf, std::int32_t rightOf, std::int32_t bottomOf)
            : left(leftOf), top(topOf), right(rightOf), bottom(bottomOf)
        {}
        virtual ~CellLocation() = default;

        std::int32_t left;
        std::int32_t top;
        std::int32_t right;
        std::int32_t bottom;
    };

    class Cell : public CellLocation
    {
    public:
        explicit Cell(const CellLocation& location) : CellLocation(location) {}

        QString content; ///< lines, each with its line feed
        std::uint64_t rowSpan = 1;
        std::uint64_t columnSpan = 1;
        bool isHeader = false;
    };

    RSTGridTable(const QStringRef& text, const QStringRef& indent);

    const std::vector<Cell>& cells() const { return m_cells; }
    QString toHTML(const ConversionLibrary& library) const;

private:
    std::vector<Cell> m_cells;           ///< by their top left corners, row by row
    std::vector<std::int64_t> m_rows;    ///< the tops of cells
    std::vector<std::int64_t> m_columns; ///< the sides of cells
};

} // namespace detail

} // namespace Halvorin::Text

#endif
