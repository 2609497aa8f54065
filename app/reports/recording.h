#ifndef RECORDING_H
#define RECORDING_H

#include "simulator/devicefile.h"
#include "simulator/parametertable.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// A text of a run that came from a file, and how the file is called.
struct NamedText
{
    std::string name;
    std::string text;
};

/// All that a run depends on: the device and what was asked for. Equal inputs give equal runs.
struct RunInputs
{
    std::string device; ///< how messages call it
    DeviceTexts texts;
    std::vector<NamedText> stimuli;
    ParameterOverrides parameters;
    std::optional<std::string> until;
    std::string resolution = "1f";
};

/// The inputs as the text of one file.
std::string recordingOf(const RunInputs& inputs);

/// @throws std::runtime_error for what is no recording
RunInputs readRecording(std::string_view text);

#endif
