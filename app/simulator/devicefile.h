#ifndef DEVICEFILE_H
#define DEVICEFILE_H

#include "statechart/json/jsonvalue.h"

#include <optional>
#include <stdexcept>
#include <string>

/// The texts that a device is told by: its definition, its compiled form, or both.
struct DeviceTexts
{
    std::optional<std::string> definition;
    std::optional<std::string> compiled;
};

/// A device that cannot be read or compiled because of what stands in its definition.
class DefinitionHasErrors : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Takes a text for a compiled device or a definition, by its content: only a compiled one counts its states.
/// What cannot be read at all is taken for a definition.
DeviceTexts deviceTextsOf(std::string text);

/// The compiled device, for linking: as it stands, or else compiled from the definition.
/// @throws DefinitionHasErrors for a definition that cannot be read or does not compile; for a compiled
/// device what readDocument() raises
JsonObject compiledDeviceOf(const DeviceTexts& texts);

#endif
