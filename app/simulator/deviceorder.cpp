#include "simulator/deviceorder.h"

namespace {

std::vector<std::string> keysOf(const JsonObject& compiled, std::string_view section)
{
    std::vector<std::string> keys;
    for (const JsonMember& member : compiled.at(section).asObject())
        keys.push_back(member.key);
    return keys;
}

} // namespace

DeviceOrder::DeviceOrder(const JsonObject& compiled)
    : inputPins(keysOf(compiled, "inputPins")), inputBuses(keysOf(compiled, "inputBuses")),
      outputPins(keysOf(compiled, "outputPins")), outputBuses(keysOf(compiled, "outputBuses")),
      variables(keysOf(compiled, "variables")), parameters(keysOf(compiled, "parameters"))
{}
