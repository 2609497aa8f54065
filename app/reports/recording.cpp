#include "reports/recording.h"

#include "simulator/jsontext.h"
#include "statechart/json/jsonwriter.h"

#include <stdexcept>

namespace {

constexpr std::int32_t version = 1;

void addText(JsonObject& object, const std::string& key, const std::optional<std::string>& text)
{
    if (text)
        object.insert(key, *text);
}

std::optional<std::string> textIn(const JsonValue& object, std::string_view key)
{
    return object.has(key) ? std::optional(object.member(key).asString()) : std::nullopt;
}

/// A list of pairs of texts; pairs, since keys of the writer take no quotes.
template <class Element>
JsonArray pairs(const std::vector<Element>& elements)
{
    JsonArray result;
    for (const auto& [first, second] : elements)
        result.push_back(JsonArray{first, second});
    return result;
}

template <class Element>
std::vector<Element> readPairs(const JsonValue& list)
{
    std::vector<Element> result;
    for (const JsonValue& pair : list.asArray())
        result.push_back({pair.element(0).asString(), pair.element(1).asString()});
    return result;
}

} // namespace

std::string recordingOf(const RunInputs& inputs)
{
    JsonObject recording{{"recording", version}, {"device", inputs.device}};
    addText(recording, "definition", inputs.texts.definition);
    addText(recording, "compiled", inputs.texts.compiled);
    recording.insert("stimuli", pairs(inputs.stimuli));
    recording.insert("parameters", pairs(inputs.parameters));
    addText(recording, "until", inputs.until);
    recording.insert("resolution", inputs.resolution);
    return toString(recording) + "\n";
}

RunInputs readRecording(std::string_view text)
{
    const JsonValue recording = readJsonText(text);
    if (!recording.has("recording") || !recording.member("recording").equals(version))
        throw std::runtime_error("not a recording of a run");
    RunInputs inputs;
    inputs.device = recording.member("device").asString();
    inputs.texts.definition = textIn(recording, "definition");
    inputs.texts.compiled = textIn(recording, "compiled");
    if (!inputs.texts.definition && !inputs.texts.compiled)
        throw std::runtime_error("the recording has no device");
    inputs.stimuli = readPairs<NamedText>(recording.member("stimuli"));
    inputs.parameters = readPairs<ParameterOverrides::value_type>(recording.member("parameters"));
    inputs.until = textIn(recording, "until");
    inputs.resolution = recording.member("resolution").asString();
    return inputs;
}
