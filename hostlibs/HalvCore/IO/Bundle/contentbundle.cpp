#include "HalvCore/IO/Bundle/contentbundle.h"

#include "HalvCore/wholefile.h"

namespace Halvorin::System::IO::Bundle {

ContentBundle::ContentBundle() : ContentBundle(OpcPackaging::OpcPackage()) {}

ContentBundle::ContentBundle(OpcPackaging::OpcPackage package) : AbstractBundle(std::move(package)) {}

ContentBundle::~ContentBundle() = default;

Expected<ContentBundle, ErrorCode2> ContentBundle::readFromFile(const FilePath2& path)
{
    const auto bytes = readWholeFile(path.toStdPath(), OpcPackaging::packageFileLimit);
    if (!bytes)
        return bytes.error();
    const auto package = OpcPackaging::OpcPackage::fromBytes(bytes.value());
    if (!package)
        return package.error();
    return ContentBundle(package.value());
}

} // namespace Halvorin::System::IO::Bundle
