#include "simulator/stimulus.h"

#include "simulator/exponents.h"
#include "simulator/jsontext.h"
#include "statechart/json/jsonwriter.h"
#include "statechart/text/engineeringnumber.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <stdexcept>

namespace {

[[noreturn]] void fail(const std::string& place, const std::string& what)
{
    throw std::runtime_error(place.empty() ? what : place + ": " + what);
}

/// An object of the stimulus, which has a place in the file and keys that it may have.
class Reader
{
public:
    Reader(const JsonValue& value, std::string place, TimeResolution resolution,
           std::initializer_list<std::string_view> keys)
        : m_place(std::move(place)), m_resolution(resolution)
    {
        if (!value.isObject())
            fail(m_place, "not an object");
        m_object = &value.asObject();
        for (const JsonMember& member : *m_object)
            if (std::ranges::find(keys, member.key) == keys.end())
                fail(m_place, "unknown key \"" + member.key + "\"");
    }

    const std::string& place() const { return m_place; }
    const JsonValue* find(std::string_view key) const { return m_object->find(key); }

    const JsonValue& require(std::string_view key) const
    {
        if (const JsonValue* const value = find(key))
            return *value;
        fail(m_place, "\"" + std::string(key) + "\" is missing");
    }

    std::string text(std::string_view key) const
    {
        const JsonValue& value = require(key);
        if (!value.isString())
            fail(m_place, "\"" + std::string(key) + "\" is no text");
        return value.asString();
    }

    /// A number, or a text with an engineering suffix.
    double number(std::string_view key) const
    {
        const JsonValue& value = require(key);
        if (value.isInt())
            return value.asInt();
        if (value.isDouble())
            return value.asDouble();
        if (value.isString()) {
            try {
                return parseEngineeringNumber(value.asString());
            } catch (const std::runtime_error& error) {
                fail(m_place, "\"" + std::string(key) + "\": " + error.what());
            }
        }
        fail(m_place, "\"" + std::string(key) + "\" is neither a number nor a text of one");
    }

    Ticks time(std::string_view key) const
    {
        const double seconds = number(key);
        try {
            return m_resolution.ticks(seconds, "\"" + std::string(key) + "\"");
        } catch (const std::runtime_error& error) {
            fail(m_place, error.what());
        }
    }

private:
    std::string m_place;
    TimeResolution m_resolution;
    const JsonObject* m_object;
};

StimulusClock readClock(const JsonValue& value, const std::string& place, TimeResolution resolution)
{
    const Reader reader(value, place, resolution, {"pin", "period", "start", "duty"});
    StimulusClock clock{reader.text("pin"), 0, reader.time("period"), 0};
    if (reader.find("start") != nullptr)
        clock.start = reader.time("start");
    const double duty = reader.find("duty") != nullptr ? reader.number("duty") : 0.5;
    if (!(duty > 0 && duty < 1))
        fail(place, "\"duty\" is not between 0 and 1");
    clock.high = static_cast<Ticks>(std::round(static_cast<double>(clock.period) * duty));
    if (clock.high < 1 || clock.high >= clock.period)
        fail(place, "\"period\" is too short for ticks of " + timeText(1, resolution));
    return clock;
}

StimulusEntry readEntry(const JsonValue& value, const std::string& place, TimeResolution resolution,
                        bool isExpectation)
{
    struct Target
    {
        std::string_view key;
        TargetKind kind;
    };
    static constexpr std::array<Target, 3> targets{
        {{"pin", TargetKind::pin}, {"bus", TargetKind::bus}, {"variable", TargetKind::variable}}};

    const auto reader = isExpectation
                            ? Reader(value, place, resolution, {"time", "value", "pin", "bus", "variable"})
                            : Reader(value, place, resolution, {"time", "value", "pin", "bus"});
    const auto isThere = [&](const Target& target) { return reader.find(target.key) != nullptr; };
    if (std::ranges::count_if(targets, isThere) != 1)
        fail(place, isExpectation ? "exactly one of \"pin\", \"bus\" and \"variable\" must be there"
                                  : "exactly one of \"pin\" and \"bus\" must be there");
    const Target& target = *std::ranges::find_if(targets, isThere);
    return {place, reader.time("time"), target.kind, reader.text(target.key), reader.require("value")};
}

/// Calls `read` for each element of a list that may be missing.
template <class Read>
void readList(const Reader& root, std::string_view key, Read read)
{
    const JsonValue* const list = root.find(key);
    if (list == nullptr)
        return;
    if (!list->isArray())
        fail({}, "\"" + std::string(key) + "\" is no list");
    std::size_t index = 0;
    for (const JsonValue& value : list->asArray())
        read(value, std::string(key) + "[" + std::to_string(index++) + "]");
}

ParameterOverrides readParameters(const JsonValue& value)
{
    if (!value.isObject())
        fail({}, "\"parameters\" is not an object");
    ParameterOverrides parameters;
    for (const JsonMember& member : value.asObject()) {
        if (!member.value.isString() && !member.value.isNumber())
            fail("parameters", "\"" + member.key + "\" is neither a number nor a text of one");
        parameters.emplace_back(member.key,
                                member.value.isString() ? member.value.asString() : toString(member.value));
    }
    return parameters;
}

} // namespace

std::optional<Ticks> Stimulus::lastTime() const
{
    std::optional<Ticks> last;
    for (const std::vector<StimulusEntry>* const entries : {&events, &expectations})
        for (const StimulusEntry& entry : *entries)
            last = std::max(last.value_or(0), entry.time);
    return last;
}

Stimulus readStimulus(std::string_view text, TimeResolution resolution)
{
    const JsonValue document = readJsonText(text);
    refuseSplitExponents(text);
    const Reader root(document, {}, resolution, {"clocks", "events", "expect", "parameters", "until"});

    Stimulus stimulus;
    readList(root, "clocks", [&](const JsonValue& value, const std::string& place) {
        stimulus.clocks.push_back(readClock(value, place, resolution));
    });
    readList(root, "events", [&](const JsonValue& value, const std::string& place) {
        stimulus.events.push_back(readEntry(value, place, resolution, false));
    });
    readList(root, "expect", [&](const JsonValue& value, const std::string& place) {
        stimulus.expectations.push_back(readEntry(value, place, resolution, true));
    });
    if (const JsonValue* const parameters = root.find("parameters"))
        stimulus.parameters = readParameters(*parameters);
    if (root.find("until") != nullptr)
        stimulus.until = root.time("until");
    return stimulus;
}
