#include "reports/gtkwavesave.h"

#include "reports/activelevels.h"
#include "reports/valuechangedump.h"
#include "simulator/simulateddevice.h"

#include <array>

namespace {

// The viewer's flags: a number in hexadecimal, a heading, and so on (its TR_ flags, right-justified).
constexpr std::string_view heading = "@200\n-";
constexpr std::string_view binary = "@28\n";
constexpr std::string_view hexadecimal = "@22\n";
constexpr std::string_view decimal = "@24\n";
constexpr std::string_view signedDecimal = "@420\n";
constexpr std::string_view text = "@820\n";

/// By the type tags of variables: int, double, string, bool, int64_t, uint64_t.
constexpr std::array<std::string_view, 6> variableForms{signedDecimal, signedDecimal, text,
                                                        binary,        signedDecimal, decimal};

std::string signalLine(const Signal& signal, const std::string& scope)
{
    std::string line(binary);
    if (signal.isBus()) {
        // The viewer knows no offset: an offset-binary bus is shown with its levels.
        line = signal.encoding == BusEncoding::twosComplement ? signedDecimal : hexadecimal;
    }
    line += scope + dumpName(signal.name);
    if (signal.isBus())
        line += "[" + std::to_string(signal.width - 1) + ":0]";
    return line + "\n";
}

/// The power of two of ticks for 200 pixels that shows a run as a whole in the viewer's own window; then the
/// cursor and the markers, of which there are none.
std::string zoomLine(Ticks end)
{
    int scale = 0;
    while (end >> scale > 2)
        ++scale;
    std::string line = "*-" + std::to_string(scale) + ".0";
    for (int marker = 0; marker < 27; ++marker)
        line += " -1";
    return line + "\n";
}

} // namespace

std::string gtkwaveSaveText(const std::string& dump, const std::string& name, const SimulatedDevice& device)
{
    const std::string scope = dumpName(name) + ".";
    std::string result = "[dumpfile] \"" + dump + "\"\n[timestart] 0\n" + zoomLine(device.now());

    result.append(heading).append("States\n").append(text);
    const ActiveLevels levels(device.chart());
    for (const ActiveLevels::Level& level : levels.all()) {
        result += scope + "states.";
        for (const AbstractState* const state : statesAround(level))
            result += dumpName(state->identifier) + ".";
        result += dumpName(nameOf(level)) + "\n";
    }
    for (const bool isInput : {true, false}) {
        result.append(heading).append(isInput ? "Inputs\n" : "Outputs\n");
        for (const Signal& signal : device.signals().all())
            if (signal.isInput == isInput)
                result += signalLine(signal, scope);
    }
    if (!device.order().variables.empty())
        result.append(heading).append("Variables\n");
    for (const std::string& variable : device.order().variables) {
        const DeviceVariableValue& value = device.variables().at(variable);
        result.append(variableForms[value.index()]).append(scope + "variables." + dumpName(variable));
        result += "\n";
    }
    return result;
}
