#include "statechart/package/bundlefile.h"

#include "HalvCore/filepath.h"
#include "HalvCore/filepath2.h"
#include "HalvCore/wholefile.h"
#include "statechart/definitionpath.h"
#include "statechart/json/jsonkeys.h"
#include "statechart/json/jsonwriter.h"
#include "statechart/package/bundleparts.h"
#include "statechart/package/definitioncompile.h"
#include "statechart/package/definitionsizelimit.h"
#include "statechart/text/format.h"

#include <filesystem>
#include <stdexcept>
#include <system_error>

using Halvorin::System::FilePath;
using Halvorin::System::FilePath2;
using Halvorin::System::IO::Bundle::ContentBundle;

namespace {

static_assert(bundleSizeLimit == Halvorin::System::IO::OpcPackaging::packageFileLimit);

std::optional<std::string> textOf(const std::optional<JsonObject>& document)
{
    return document ? std::optional(toString(*document)) : std::nullopt;
}

/// Also by another name of the file. Not so for a device, of which both sides have their own end.
bool isSameFile(const FilePath& first, const FilePath& second)
{
    std::error_code ignored;
    return std::filesystem::is_regular_file(first.toStdPath(), ignored) &&
           std::filesystem::equivalent(first.toStdPath(), second.toStdPath(), ignored);
}

/// It would be written, and could not be read.
void refuseUnwritableKeys(const JsonObject& definition)
{
    forEachUnwritableKey(definition, [](const JsonPath& path) -> bool {
        throw std::runtime_error(
            formatText("the key '{}' at {} cannot be written: it has a quote or a backslash",
                       std::get<std::string>(path.back()), definitionPathText(path)));
    });
}

} // namespace

void bundleDevice(const std::string& definitionPath, const std::string& bundlePath)
{
    const FilePath path(definitionPath);
    if (isSameFile(path, FilePath(bundlePath)))
        throw std::runtime_error(
            formatText("the bundle '{}' would replace the definition that it is made of", bundlePath));
    const auto text = Halvorin::System::readWholeFile(path.toStdPath(), definitionSizeLimit).value();
    const JsonObject definition = readDefinitionDocument(std::string(text.toStdStringView()));
    refuseUnwritableKeys(definition);

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
