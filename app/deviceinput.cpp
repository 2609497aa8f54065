#include "deviceinput.h"

#include "HalvCore/filepath.h"
#include "HalvCore/wholefile.h"
#include "findingtext.h"
#include "spool.h"
#include "standardstreams.h"
#include "statechart/check/definitioncheck.h"
#include "statechart/package/bundlefile.h"
#include "statechart/package/definitionsizelimit.h"

#include <stdexcept>

namespace {

std::string textOf(const InputPath& input)
{
    const Halvorin::System::FilePath path(input.path());
    return std::string(
        Halvorin::System::readWholeFile(path.toStdPath(), definitionSizeLimit).value().toStdStringView());
}

bool isBundle(std::string_view text)
{
    return text.starts_with("PK"); // as every zip file begins
}

DeviceTexts textsOfBundle(const std::string& path)
{
    DeviceBundleContent content = unbundleDevice(path);
    if (!content.definition && !content.compiled)
        throw std::runtime_error("the bundle holds neither a definition nor a compiled device");
    return {std::move(content.definition), std::move(content.compiled)};
}

} // namespace

DeviceTexts readDeviceInput(const std::string& argument)
{
    const InputPath input(argument, definitionSizeLimit);
    std::string text = textOf(input);
    try {
        return isBundle(text) ? textsOfBundle(input.path()) : deviceTextsOf(std::move(text));
    } catch (const std::exception& error) {
        throw std::runtime_error(shownInputName(argument) + ": " + error.what());
    }
}

std::string readTextInput(const std::string& argument)
{
    return textOf(InputPath(argument, definitionSizeLimit));
}

std::string shownInputName(const std::string& argument)
{
    return argument == "-" ? "<standard input>" : argument;
}

void reportErrors(const std::string& name, const std::string& definition)
{
    FindingRules rules;
    for (const FindingKindInfo& info : findingKinds())
        if (info.severity == FindingSeverity::warning)
            rules.disable(info.kind);
    for (const Finding& finding : checkDefinition(std::string_view(definition), rules))
        StandardStreams::printError(findingAsText(name, finding));
}
