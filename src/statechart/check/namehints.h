#ifndef NAMEHINTS_H
#define NAMEHINTS_H

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// "; did you mean 'clock'?" behind the complaint about a name that is not there.
class NameHints
{
public:
    /// Empty when no candidate is near: no more than one in three characters may be wrong, missing, too many
    /// or swapped with its neighbour. The first of equally near ones counts.
    std::string hintFor(std::string_view name, std::span<const std::string_view> candidates);

private:
    // Names and candidates may both be thousands. What has been compared counts against this, and when it
    // is used up there are no more hints.
    std::size_t m_budget = 20'000'000;
};

#endif
