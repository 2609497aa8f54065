#include "conversion/gridcorners.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <tuple>

namespace Halvorin::Text::detail {

namespace {

/// A "+" that a border leads to. A border counts only if it leads to another corner.
struct Corner
{
    std::int32_t column;
    std::int32_t row;
    bool hasBorderDown = false;
    bool hasBorderRight = false;
};

/// Follows the borders from the top left to the right and down. Every character is looked at once: where it
/// leads does not depend on where one comes from.
class CornerWalk
{
public:
    explicit CornerWalk(const GridView& view) : m_view(view)
    {
        m_known.reserve(static_cast<std::size_t>(view.lines.size()));
        for (const QStringRef& line : view.lines)
            m_known.emplace_back(
                static_cast<std::size_t>(std::clamp(line.size() - view.indentWidth, 0, view.width)),
                Lead::unknown);
    }

    std::vector<Corner> walk()
    {
        std::vector<Corner> corners;
        std::size_t most = 0;
        for (const QStringRef& line : m_view.lines)
            most += static_cast<std::size_t>(line.count(QLatin1Char('+')));
        corners.reserve(std::min(most, static_cast<std::size_t>(m_view.lines.size() / 4 + 1) *
                                           static_cast<std::size_t>(m_view.width / 4 + 1)));
        leadsToCorner(0, 0);
        while (!m_open.empty()) {
            Corner corner = m_open.back();
            m_open.pop_back();
            corner.hasBorderDown = leadsToCorner(corner.column, corner.row + 1);
            corner.hasBorderRight = leadsToCorner(corner.column + 1, corner.row);
            corners.push_back(corner);
        }
        return corners;
    }

private:
    enum class Lead : char
    {
        unknown,
        corner,
        nowhere,
    };

    bool leadsToCorner(int column, int row)
    {
        m_path.clear();
        Lead found = Lead::nowhere;
        while (row < static_cast<int>(m_known.size()) &&
               column < static_cast<int>(m_known[static_cast<std::size_t>(row)].size())) {
            Lead& known = m_known[static_cast<std::size_t>(row)][static_cast<std::size_t>(column)];
            if (known != Lead::unknown) {
                found = known;
                break;
            }
            m_path.push_back(&known);
            const QChar c = m_view.at(column, row);
            if (c == QLatin1Char('+')) {
                m_open.push_back({column, row});
                found = Lead::corner;
                break;
            }
            if (c == QLatin1Char('-') || c == QLatin1Char('='))
                ++column;
            else if (c == QLatin1Char('|'))
                ++row;
            else
                break;
        }
        for (Lead* known : m_path)
            *known = found;
        return found == Lead::corner;
    }

    const GridView& m_view;
    std::vector<std::vector<Lead>> m_known;
    std::vector<Corner> m_open;
    std::vector<Lead*> m_path;
};

/// The next corner of the same line, in a list that is sorted by lines, that has the wanted border.
template <class Same, class Wanted>
std::optional<Corner> nextCorner(const std::vector<Corner>& sorted, std::size_t index, Same&& isSameLine,
                                 Wanted&& isWanted)
{
    for (std::size_t next = index + 1; next < sorted.size() && isSameLine(sorted[next]); ++next)
        if (std::invoke(isWanted, sorted[next]))
            return sorted[next];
    return std::nullopt;
}

} // namespace

GridView::GridView(const QStringRef& text, const QStringRef& indent)
    : lines(text.split(QLatin1Char('\n'), Qt::SkipEmptyParts)), indentWidth(indent.size()), width(0)
{
    // the first line is a border: dashes between corners
    const QStringRef first = lines.isEmpty() ? QStringRef() : lines.first();
    while (indentWidth + width < first.size() &&
           (at(width, 0) == QLatin1Char('+') || at(width, 0) == QLatin1Char('-')))
        ++width;
}

std::vector<RSTGridTable::CellLocation> findCellLocations(const GridView& view)
{
    std::vector<Corner> byRow = CornerWalk(view).walk();
    const auto rowFirst = [](const Corner& corner) { return std::tuple(corner.row, corner.column); };
    const auto columnFirst = [](const Corner& corner) { return std::tuple(corner.column, corner.row); };
    std::ranges::sort(byRow, {}, rowFirst);
    std::vector<Corner> byColumn = byRow;
    std::ranges::sort(byColumn, {}, columnFirst);

    std::vector<RSTGridTable::CellLocation> locations;
    for (std::size_t index = 0; index < byRow.size(); ++index) {
        const Corner& corner = byRow[index];
        if (!corner.hasBorderDown || !corner.hasBorderRight)
            continue;
        const auto inColumn = std::ranges::lower_bound(byColumn, columnFirst(corner), {}, columnFirst);
        const std::optional<Corner> right = nextCorner(
            byRow, index, [&](const Corner& other) { return other.row == corner.row; },
            &Corner::hasBorderDown);
        const std::optional<Corner> bottom = nextCorner(
            byColumn, static_cast<std::size_t>(inColumn - byColumn.begin()),
            [&](const Corner& other) { return other.column == corner.column; }, &Corner::hasBorderRight);
        if (right && bottom)
            locations.emplace_back(corner.column, corner.row, right->column, bottom->row);
    }
    return locations;
}

} // namespace Halvorin::Text::detail
