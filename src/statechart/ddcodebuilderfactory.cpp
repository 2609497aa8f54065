#include "statechart/ddcodebuilderfactory.h"

#include "actionlanguage/buildrules.h"
#include "statechart/devicefunctions.h"

std::unique_ptr<CodeBuilder> DDCodeBuilderFactory::createCodeBuilder()
{
    return std::make_unique<CodeBuilder>(std::make_shared<const BuildRules>(constructDeviceFunctionRules()));
}
