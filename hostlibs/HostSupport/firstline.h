#ifndef HOSTSUPPORT_FIRSTLINE_H
#define HOSTSUPPORT_FIRSTLINE_H

#include "HostSupport/hostsupportexport.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

namespace HostSupport {

/// No more of an answer than this is read.
constexpr std::size_t longestFirstLine = 256;

/// Runs a program, which has nothing to read and whose errors go nowhere, and gives the first line that it
/// prints, without the line end; what there is of it when the program ends, the time is up, or the line is
/// too long. The program is gone afterwards, with what it started. Empty when it cannot be started.
HOSTSUPPORT_EXPORT std::string firstLineOf(const std::filesystem::path& program,
                                           const std::vector<std::string>& arguments,
                                           std::chrono::milliseconds limit);

} // namespace HostSupport

#endif
