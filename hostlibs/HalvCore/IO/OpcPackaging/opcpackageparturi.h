#ifndef HALVCORE_OPCPACKAGEPARTURI_H
#define HALVCORE_OPCPACKAGEPARTURI_H

#include "HalvCore/halvcoreexport.h"

#include <string>
#include <string_view>

namespace Halvorin::System::IO::OpcPackaging {

/// The name of a part. A name without the slash in front is taken as if it had one. Names that differ only
/// in the case of the letters A to Z name the same part.
class HALVCORE_EXPORT OpcPackagePartUri
{
public:
    explicit OpcPackagePartUri(std::wstring_view name);
    static OpcPackagePartUri fromItemName(std::string_view itemName);

    /// Whether the name is one that a part may have: segments of URI characters between single slashes,
    /// none empty, none that ends in a dot (so neither "." nor ".."), no encoded slash or backslash.
    bool isValid() const;

    /// With the slash in front.
    const std::string& toStdString() const { return m_name; }

    /// The name under which the part stands in the archive: without the slash in front.
    std::string_view itemName() const { return std::string_view(m_name).substr(1); }

    /// Equal for names of the same part.
    std::string key() const;

private:
    explicit OpcPackagePartUri(std::string name) : m_name(std::move(name)) {}

    std::string m_name;
};

} // namespace Halvorin::System::IO::OpcPackaging

#endif
