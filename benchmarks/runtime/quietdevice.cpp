#include "quietdevice.h"

#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/ddstatechartlinker.h"
#include "statechart/json/jsonreader.h"

#include <sstream>

std::unique_ptr<QuietDevice> quietDevice(const std::string& definition)
{
    const std::shared_ptr<CodeBuilder> builder = DDCodeBuilderFactory::createCodeBuilder();
    std::istringstream input(definition);
    const JsonObject compiled = compileDeviceStateChart(asObject(readDocument(input)), builder);
    return std::make_unique<QuietDevice>(linkDeviceStateChart(compiled, builder));
}
