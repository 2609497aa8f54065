#ifndef BUNDLEFILE_H
#define BUNDLEFILE_H

#include "halvwidgetsexport.h"

#include <cstddef>
#include <optional>
#include <string>

/// Device bundles for who has files and not objects. Paths are narrow texts; every failure is an exception
/// derived from std::exception whose text says what is wrong.

/// The most bytes that are read for a bundle.
inline constexpr std::size_t bundleSizeLimit = std::size_t{128} << 20;

/// What a device bundle holds, as the texts of JSON documents.
struct HALVWIDGETS_EXPORT DeviceBundleContent
{
    std::optional<std::string> definition;
    std::optional<std::string> compiled;
};

/// Compiles a definition file and writes it with its compiled device to a bundle file. Nothing is written
/// when anything fails, and not over the definition itself.
HALVWIDGETS_EXPORT void bundleDevice(const std::string& definitionPath, const std::string& bundlePath);

/// The documents of a bundle file.
HALVWIDGETS_EXPORT DeviceBundleContent unbundleDevice(const std::string& bundlePath);

#endif
