#ifndef PYTHONVERSION_H
#define PYTHONVERSION_H

#include "HostSupport/fileversion.h"

#include <optional>
#include <string>

/// "3.12"; empty when there is no version.
std::string versionText(const std::optional<FileVersion>& version);

/// A version's text as the number by which versions are ordered, and which a plug-in gives of itself: the
/// text read as a decimal number, times 100. So "3.12" is 312, and "3.9" is 390 and comes behind it: only
/// versions from "3.10" on are met.
double versionNumber(const std::string& text);

#endif
