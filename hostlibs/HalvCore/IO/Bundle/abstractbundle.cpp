#include "HalvCore/IO/Bundle/abstractbundle.h"

#include "HalvCore/wholefile.h"

namespace Halvorin::System::IO::Bundle {

AbstractBundle::AbstractBundle(OpcPackaging::OpcPackage package) : m_package(std::move(package)) {}

AbstractBundle::~AbstractBundle() = default;

Expected<OpcPackaging::OpcPackage, ErrorCode2> AbstractBundle::package() const
{
    return m_package;
}

Expected<void, ErrorCode2> AbstractBundle::writeToFile(const FilePath2& path) const
{
    const auto bytes = m_package.toBytes();
    if (!bytes)
        return bytes.error();
    return writeWholeFile(path.toStdPath(), bytes->toStdStringView());
}

} // namespace Halvorin::System::IO::Bundle
