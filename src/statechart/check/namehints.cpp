#include "statechart/check/namehints.h"

#include "statechart/text/format.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

/// How many bytes have to be changed, added, removed or swapped with their neighbour to make one of the other
/// (the optimal string alignment distance).
std::size_t distanceOf(std::string_view left, std::string_view right)
{
    std::array<std::vector<std::size_t>, 3> rows; // the one being filled is the last
    rows.fill(std::vector<std::size_t>(right.size() + 1));
    for (std::size_t column = 0; column <= right.size(); ++column)
        rows[2][column] = column;
    for (std::size_t row = 1; row <= left.size(); ++row) {
        std::rotate(rows.begin(), rows.begin() + 1, rows.end());
        rows[2][0] = row;
        for (std::size_t column = 1; column <= right.size(); ++column) {
            const bool isSame = left[row - 1] == right[column - 1];
            std::size_t& cell = rows[2][column];
            cell = std::min(
                {rows[1][column] + 1, rows[2][column - 1] + 1, rows[1][column - 1] + (isSame ? 0 : 1)});
            const bool isSwapped = row > 1 && column > 1 && left[row - 1] == right[column - 2] &&
                                   left[row - 2] == right[column - 1];
            if (isSwapped)
                cell = std::min(cell, rows[0][column - 2] + 1);
        }
    }
    return rows[2][right.size()];
}

} // namespace

std::string NameHints::hintFor(std::string_view name, std::span<const std::string_view> candidates)
{
    std::size_t smallest = name.size() / 3 + 1;
    std::string_view nearest;
    for (const std::string_view candidate : candidates) {
        const std::size_t shorter = std::min(name.size(), candidate.size());
        const std::size_t longer = std::max(name.size(), candidate.size());
        const std::size_t cost = 1 + (longer - shorter < smallest ? shorter * longer : 0);
        if (cost > m_budget)
            return {};
        m_budget -= cost;
        if (cost == 1)
            continue;
        if (const std::size_t distance = distanceOf(name, candidate); distance < smallest) {
            smallest = distance;
            nearest = candidate;
        }
    }
    return nearest.empty() ? std::string() : formatText("; did you mean '{}'?", nearest);
}
