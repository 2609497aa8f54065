#include "statechart/package/bundleparts.h"

#include "HalvCore/filepath2.h"
#include "HalvCore/string2.h"
#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <sstream>
#include <string>

using Halvorin::System::FilePath;
using Halvorin::System::FilePath2;
using Halvorin::System::String2;
using Halvorin::System::utf8ToUtf8;
using Halvorin::System::IO::WriteMode;
using Halvorin::System::IO::Bundle::ContentBundle;
using namespace Halvorin::System::IO::OpcPackaging;

namespace {

struct Part
{
    const wchar_t* name;
    const char* contentType;
    const char* relationshipType;
};

constexpr Part definitionPart{
    L"document/deviceDefinition.json",
    "application/vnd.halvorin.ddsc_definition",
    "http://schemas.halvorin.example/package/2025/relationships/ddsc/deviceDefinition",
};

constexpr Part compiledPart{
    L"document/compiledDevice.json",
    "application/vnd.halvorin.ddsc_compiled",
    "http://schemas.halvorin.example/package/2025/relationships/ddsc/compiledDevice",
};

void writePart(ContentBundle& bundle, const Part& part, const JsonObject& document)
{
    const OpcPackagePartUri uri(part.name);
    const std::string text = toString(document);
    const String2 content = utf8ToUtf8(text.data(), text.size()).value();
    OpcPackage package = bundle.package().value();
    if (package.partExists(uri).value()) {
        package.part(uri)->writeContent(content, WriteMode::replace).value();
        return;
    }
    package.createPart(uri, part.contentType, CompressionOption::normal)
        ->writeContent(content, WriteMode::replace)
        .value();
    package.createRelationship(uri, TargetMode::internal, part.relationshipType).value();
}

std::optional<JsonObject> readPart(const ContentBundle& bundle, const Part& part)
{
    const OpcPackagePartUri uri(part.name);
    const OpcPackage package = bundle.package().value();
    if (!package.partExists(uri).value())
        return std::nullopt;
    const auto content = package.part(uri)->readContent().value();
    std::istringstream stream{std::string(content.toStdStringView())};
    return asObject(readDocument(stream));
}

} // namespace

void writeDefinition(ContentBundle& bundle, const JsonObject& document)
{
    writePart(bundle, definitionPart, document);
}

void writeCompiled(ContentBundle& bundle, const JsonObject& document)
{
    writePart(bundle, compiledPart, document);
}

std::optional<JsonObject> readDefinition(const ContentBundle& bundle)
{
    return readPart(bundle, definitionPart);
}

std::optional<JsonObject> readCompiled(const ContentBundle& bundle)
{
    return readPart(bundle, compiledPart);
}

void writeBundle(const ContentBundle& bundle, const FilePath& path)
{
    const std::wstring wide = path.toStdWString();
    bundle.writeToFile(FilePath2(wide.data(), wide.size())).value();
}
