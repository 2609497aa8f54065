#include "simulator/devicefile.h"

#include "simulator/jsontext.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/json/jsonreader.h"

namespace {

JsonObject readObject(const std::string& text)
{
    return asObject(JsonDocument(readJsonText(text)));
}

} // namespace

DeviceTexts deviceTextsOf(std::string text)
{
    bool isCompiled = false;
    try {
        isCompiled = readObject(text).contains("nstates");
    } catch (const JsonException&) {
        // what is wrong is told when it is compiled
    }
    DeviceTexts texts;
    (isCompiled ? texts.compiled : texts.definition) = std::move(text);
    return texts;
}

JsonObject compiledDeviceOf(const DeviceTexts& texts)
{
    if (texts.compiled)
        return readObject(*texts.compiled);
    try {
        return compileDeviceStateChart(readObject(texts.definition.value()),
                                       DDCodeBuilderFactory::createCodeBuilder());
    } catch (const std::exception& error) {
        throw DefinitionHasErrors(error.what());
    }
}
