#include "statechart/package/definitioncompile.h"

#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/json/jsonreader.h"

#include <memory>
#include <sstream>
#include <utility>

JsonObject readDefinitionDocument(std::string text)
{
    std::istringstream input(std::move(text));
    try {
        return asObject(readDocument(input));
    } catch (const JsonReadException& failure) {
        throw JsonLineNumberReadException(failure, input);
    }
}

JsonObject compileDefinitionDocument(const JsonObject& definition)
{
    const std::shared_ptr<CodeBuilder> builder = DDCodeBuilderFactory::createCodeBuilder();
    return compileDeviceStateChart(definition, builder);
}
