#include "statechart/package/bundlefile.h"

#include "HalvCore/filepath.h"
#include "HalvCore/filepath2.h"
#include "HalvCore/wholefile.h"
#include "statechart/json/jsonwriter.h"
#include "statechart/package/bundleparts.h"
#include "statechart/package/definitioncompile.h"
#include "statechart/package/definitionsizelimit.h"

using Halvorin::System::FilePath;
using Halvorin::System::FilePath2;
using Halvorin::System::IO::Bundle::ContentBundle;

namespace {

std::optional<std::string> textOf(const std::optional<JsonObject>& document)
{
    return document ? std::optional(toString(*document)) : std::nullopt;
}

} // namespace

void bundleDevice(const std::string& definitionPath, const std::string& bundlePath)
{
    const FilePath path(definitionPath);
    const auto text = Halvorin::System::readWholeFile(path.toStdPath(), definitionSizeLimit).value();
    const JsonObject definition = readDefinitionDocument(std::string(text.toStdStringView()));

    ContentBundle bundle;
    writeDefinition(bundle, definition);
    writeCompiled(bundle, compileDefinitionDocument(definition));
    writeBundle(bundle, bundlePath);
}

DeviceBundleContent unbundleDevice(const std::string& bundlePath)
{
    const std::wstring path = FilePath(bundlePath).toStdWString();
    const ContentBundle bundle = ContentBundle::readFromFile(FilePath2(path.data(), path.size())).value();
    return {textOf(readDefinition(bundle)), textOf(readCompiled(bundle))};
}
