#ifndef BUNDLEPARTS_H
#define BUNDLEPARTS_H

#include "HalvCore/IO/Bundle/contentbundle.h"
#include "HalvCore/filepath.h"
#include "statechart/json/jsonvalue.h"

#include <optional>

/// A device bundle ("*.hvdsc.zip"): a package with the definition of a device and the compiled device, each
/// a part with a relationship of the package. To add a part, add its names to bundleparts.cpp and
/// its two functions here.
///
/// Every function raises bad_expected_access<ErrorCode2> when the package does not do what is asked of it,
/// text that is not UTF-8 among it; the readers raise JsonException when a part holds no JSON object.

/// Make the part, or give the one that is there new content.
void writeDefinition(Halvorin::System::IO::Bundle::ContentBundle& bundle, const JsonObject& document);
void writeCompiled(Halvorin::System::IO::Bundle::ContentBundle& bundle, const JsonObject& document);

/// Nothing when the bundle has no such part.
std::optional<JsonObject> readDefinition(const Halvorin::System::IO::Bundle::ContentBundle& bundle);
std::optional<JsonObject> readCompiled(const Halvorin::System::IO::Bundle::ContentBundle& bundle);

/// Writes the bundle to a file, whole or not at all.
void writeBundle(const Halvorin::System::IO::Bundle::ContentBundle& bundle,
                 const Halvorin::System::FilePath& path);

#endif
