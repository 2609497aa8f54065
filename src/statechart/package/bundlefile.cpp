#include "statechart/package/bundlefile.h"

#include "HalvCore/filepath.h"
#include "HalvCore/filepath2.h"
#include "HalvCore/wholefile.h"
#include "statechart/json/jsonwriter.h"
#include "statechart/package/bundleparts.h"
#include "statechart/package/definitioncompile.h"

#include <sstream>

using Halvorin::System::FilePath;
using Halvorin::System::FilePath2;
using Halvorin::System::IO::Bundle::ContentBundle;

namespace {

/// Far above any definition; it keeps a mistaken path (a device, say) from filling the memory.
constexpr std::size_t definitionLimit = std::size_t{128} << 20;

std::optional<std::string> textOf(const std::optional<JsonObject>& document)
{
    return document ? std::optional(toString(*document)) : std::nullopt;
}

} // namespace

void bundleDevice(const std::string& definitionPath, const std::string& bundlePath)
{
    const FilePath path(definitionPath);
    const auto text = Halvorin::System::readWholeFile(path.toStdPath(), definitionLimit).value();
    std::istringstream input{std::string(text.toStdStringView())};
    const JsonObject definition = readDefinitionDocument(input);

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
