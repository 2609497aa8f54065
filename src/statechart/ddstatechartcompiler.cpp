#include "statechart/ddstatechartcompiler.h"

#include "statechart/deviceparameters.h"
#include "statechart/deviceterminals.h"
#include "statechart/devicevariables.h"
#include "statechart/text/format.h"

#include <stdexcept>
#include <unordered_set>
#include <utility>

namespace {

/// Calls `compileMember` with each identifier and definition of a section.
template <class MemberCompiler>
void forEachMember(const JsonObject& definition, const char* section, CompileRecord& record,
                   MemberCompiler compileMember)
{
    record.attempt([&] {
        const CompileRecord::Step step = record.enter(section);
        for (const JsonMember& member : definition.at(section).asObject()) {
            record.attempt([&] {
                const CompileRecord::Step memberStep = record.enter(member.key);
                compileMember(member.key, member.value);
            });
        }
    });
}

} // namespace

JsonObject DDStateChartCompiler::compile(const JsonObject& definition)
{
    JsonObject compiled = StateChartCompiler::compile(definition);
    compileTerminals(definition, compiled);
    JsonObject parameters;
    record().attempt([&] { compileOutputDelay(definition, parameters, record()); });
    compileParameters(definition, parameters);
    if (parameters.contains(outputDelayParameter))
        record().attempt([&] { checkOutputDelay(definition, parameters, record()); });
    JsonObject variables;
    compileVariables(definition, variables);
    compiled.insert("variables", std::move(variables));
    compiled.insert("parameters", std::move(parameters));
    return compiled;
}

void DDStateChartCompiler::compileTerminals(const JsonObject& definition, JsonObject& compiled)
{
    std::unordered_set<std::string> identifiers; // of inputs and outputs, pins and buses alike
    const auto compileSection = [&](const char* section, auto compileTerminal, const char* busKey,
                                    const char* pinKey) {
        JsonObject buses;
        JsonObject pins;
        const auto compileMember = [&](const std::string& identifier, const JsonValue& member) {
            record().attempt([&] {
                if (!identifiers.insert(identifier).second)
                    throw std::runtime_error(formatText("duplicate pin identifier: '{}'", identifier));
            });
            JsonObject terminal = compileTerminal(member.asObject(), record());
            const JsonValue* const type = terminal.find("type");
            JsonObject& table = type != nullptr && type->equals("pin") ? pins : buses;
            table.insert(identifier, std::move(terminal));
        };
        forEachMember(definition, section, record(), compileMember);
        compiled.insert(busKey, std::move(buses));
        compiled.insert(pinKey, std::move(pins));
    };
    if (definition.contains("inputs"))
        compileSection("inputs", compileInput, "inputBuses", "inputPins");
    compiled.insert("inputBuses", JsonObject());
    compiled.insert("inputPins", JsonObject());
    compileSection("outputs", compileOutput, "outputBuses", "outputPins");
}

void DDStateChartCompiler::compileParameters(const JsonObject& definition, JsonObject& parameters)
{
    if (!definition.contains("parameters"))
        return;
    forEachMember(definition, "parameters", record(),
                  [&](const std::string& identifier, const JsonValue& member) {
                      parameters.set(identifier, compileParameter(member.asObject(), record()));
                  });
}

void DDStateChartCompiler::compileVariables(const JsonObject& definition, JsonObject& variables)
{
    if (!definition.contains("variables"))
        return;
    forEachMember(definition, "variables", record(),
                  [&](const std::string& identifier, const JsonValue& member) {
                      variables.insert(identifier, compileVariable(member.asObject(), record()));
                  });
}

JsonObject DDStateChartCompiler::compileTransition(const JsonObject& definition, const std::string& source)
{
    JsonObject compiled = StateChartCompiler::compileTransition(definition, source);
    const JsonValue* const event = definition.find("event");
    if (event == nullptr || !event->equals("wake"))
        return compiled;
    for (const char* key : {"wakeTime", "wakeTimeCalc"}) {
        const JsonValue* const text = definition.find(key);
        if (text == nullptr)
            continue;
        record().attempt([&] {
            const CompileRecord::Step step = record().enter(key);
            const bool isNumber = key == std::string_view("wakeTime");
            compiled.insert("wakeTime", isNumber ? compileExpressionText(text->asString(), "etod(\"", "\");")
                                                 : compileExpressionText(text->asString()));
        });
        break;
    }
    return compiled;
}

JsonObject compileDeviceStateChart(const JsonObject& definition, std::shared_ptr<CodeBuilder> builder)
{
    return DDStateChartCompiler(std::move(builder)).compile(definition);
}
