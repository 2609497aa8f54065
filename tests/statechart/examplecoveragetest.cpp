// The example devices together use everything that a definition can hold and every function of a device.

#include "statechart/ddstatechartcompiler.h"
#include "statechart/definitions.h"
#include "statechart/devicefunctions.h"
#include "statechart/examples.h"

#include <cctype>
#include <initializer_list>
#include <set>

namespace {

using Names = std::set<std::string>;

std::string joined(std::initializer_list<std::string_view> words)
{
    std::string text;
    for (const std::string_view word : words)
        text.append(text.empty() || word.empty() ? "" : " ").append(word);
    return text;
}

std::string kindOf(const JsonValue& value)
{
    if (value.isString())
        return value.asString().empty() || std::isalpha(value.asString().back()) == 0 ? "text"
                                                                                      : "scaled text";
    if (value.isArray())
        return "array";
    if (value.isBool())
        return "boolean";
    return value.isInt() ? "integer" : "number";
}

/// Gathers what a definition makes use of, each thing as a few words.
class Constructs
{
public:
    void add(const JsonObject& definition)
    {
        for (const JsonMember& member : definition)
            note({member.key});
        m_found.insert("outputDelay " + kindOf(definition.at("outputDelay")));
        addStates(definition.at("states").asObject());
        addTerminals(definition, "inputs", "input");
        addTerminals(definition, "outputs", "output");
        addValues(definition, "parameters", "parameter");
        addValues(definition, "variables", "variable");
    }

    const Names& found() const { return m_found; }

private:
    void note(std::initializer_list<std::string_view> words) { m_found.insert(joined(words)); }

    void addStates(const JsonObject& states)
    {
        for (const JsonMember& state : states) {
            const std::string& type = state.value.member("type").asString();
            for (const JsonMember& member : state.value.asObject()) {
                if (member.key == "type")
                    note({type, "state"});
                else if (member.key == "substates")
                    addStates(member.value.asObject());
                else if (member.key == "transitions")
                    addTransitions(type, member.value.asObject());
                else if (member.key == "initial")
                    note({type, "initial"});
                else
                    note({member.key, member.value.isArray() ? "array" : "text"});
            }
        }
    }

    void addTransitions(std::string_view sourceType, const JsonObject& transitions)
    {
        note({sourceType, "with transitions"});
        note({transitions.size() > 1 ? "several transitions by order" : "one transition"});
        for (const JsonMember& transition : transitions) {
            const JsonObject& members = transition.value.asObject();
            const JsonValue* const event = members.find("event");
            const std::string trigger = event != nullptr ? event->asString() : "no event";
            note({trigger});
            for (const char* key : {"conditions", "actions"}) {
                if (const JsonValue* const texts = members.find(key))
                    note({key, texts->isArray() ? "array" : "text", "on", trigger});
                else
                    note({"no", key, "on", trigger});
            }
            for (const char* key : {"wakeTime", "wakeTimeCalc", "local"}) {
                if (members.contains(key))
                    note({key});
            }
        }
    }

    void addTerminals(const JsonObject& definition, const char* section, std::string_view direction)
    {
        const JsonValue* const terminals = definition.find(section);
        if (terminals == nullptr)
            return;
        for (const JsonMember& terminal : terminals->asObject()) {
            const auto word = [&](const char* key) -> std::string_view {
                const JsonValue* const value = terminal.value.asObject().find(key);
                return value != nullptr && value->isString() ? std::string_view(value->asString()) : "";
            };
            note({direction, word("type"), word("dataType"), word("encoding"), word("initial")});
            const JsonValue* const initial = terminal.value.asObject().find("initial");
            if (initial != nullptr && initial->isInt())
                note({"initial", initial->asInt() < 0 ? "negative" : "not negative"});
        }
    }

    void addValues(const JsonObject& definition, const char* section, std::string_view what)
    {
        const JsonValue* const values = definition.find(section);
        if (values == nullptr)
            return;
        for (const JsonMember& value : values->asObject())
            note({what, value.value.member("type").asString(), kindOf(value.value.member("value"))});
    }

    Names m_found;
};

/// To extend the format, add what it gains here and use it in an example. The event "init" is not among them:
/// only the state before the start of a chart sees it, so no transition of a definition is ever taken on it.
const Names constructsOfTheFormat{
    "$schema",
    "states",
    "start",
    "inputs",
    "outputs",
    "parameters",
    "variables",
    "outputDelay",
    "outputDelay number",
    "outputDelay scaled text",

    "atomic state",
    "compound state",
    "compound initial",
    "parallel state",
    "onEntry text",
    "onEntry array",
    "onExit text",
    "onExit array",

    "atomic with transitions",
    "compound with transitions",
    "parallel with transitions",
    "one transition",
    "several transitions by order",
    "no event",
    "change",
    "wake",
    "no conditions on no event",
    "conditions text on no event",
    "no conditions on change",
    "conditions text on change",
    "conditions array on change",
    "no conditions on wake",
    "conditions text on wake",
    "no actions on no event",
    "actions text on no event",
    "no actions on change",
    "actions text on change",
    "actions array on change",
    "no actions on wake",
    "actions text on wake",
    "actions array on wake",
    "wakeTime",
    "wakeTimeCalc",
    "local",

    "input pin",
    "input bus uint64_t",
    "input bus int64_t OffsetBinary",
    "input bus int64_t TwosComplement",
    "output pin 0",
    "output pin 1",
    "output bus uint64_t",
    "output bus int64_t OffsetBinary",
    "output bus int64_t TwosComplement",
    "initial negative",
    "initial not negative",

    "parameter int64_t integer",
    "parameter int64_t text",
    "parameter uint64_t integer",
    "parameter uint64_t scaled text",
    "parameter double integer",
    "parameter double number",
    "parameter double scaled text",

    "variable int integer",
    "variable double integer",
    "variable double scaled text",
    "variable string text",
    "variable bool boolean",
    "variable int64_t integer",
    "variable uint64_t integer",
};

std::string signature(const std::string& function, const std::vector<std::string>& argumentTypes)
{
    std::string text = function + "(";
    std::string_view separator;
    for (const std::string& type : argumentTypes) {
        text.append(separator).append(type);
        separator = ", ";
    }
    return text + ")";
}

Names deviceSignatures()
{
    Names signatures;
    for (const auto& rule : constructDeviceFunctionRules()) {
        for (const FunctionOverload& overload : rule->overloads()) {
            std::vector<std::string> types;
            for (const DataType type : overload->argumentTypes())
                types.emplace_back(typeName(type));
            signatures.insert(signature(rule->name(), types));
        }
    }
    return signatures;
}

/// The signatures of all calls that stand anywhere in a compiled form.
void gatherCalls(const JsonValue& form, Names& calls)
{
    if (form.isArray()) {
        for (const JsonValue& element : form.asArray())
            gatherCalls(element, calls);
    }
    if (!form.isObject())
        return;
    if (form.has("rule") && form.member("rule").equals("call")) {
        std::vector<std::string> types;
        for (const JsonValue& type : form.member("argTypes").asArray())
            types.push_back(type.asString());
        calls.insert(signature(form.member("func").asString(), types));
    }
    for (const JsonMember& member : form.asObject())
        gatherCalls(member.value, calls);
}

TEST(ExampleChartsTogether, UseEverythingThatADefinitionCanHold)
{
    Constructs constructs;
    for (const std::filesystem::path& path : definitionsUnder("charts"))
        constructs.add(jsonOf(readText(path)).asObject());
    for (const std::string& construct : constructsOfTheFormat)
        EXPECT_TRUE(constructs.found().contains(construct)) << "no example has: " << construct;
}

TEST(ExampleChartsTogether, CallEveryFunctionOfADeviceInEachOfItsForms)
{
    Names calls;
    for (const std::filesystem::path& path : definitionsUnder("charts"))
        gatherCalls(compileDeviceStateChart(jsonOf(readText(path)).asObject(), deviceCodeBuilder()), calls);
    for (const std::string& function : deviceSignatures())
        EXPECT_TRUE(calls.contains(function)) << "no example calls: " << function;
}

} // namespace
