#ifndef HALVCORE_ABSTRACTBUNDLE_H
#define HALVCORE_ABSTRACTBUNDLE_H

#include "HalvCore/IO/OpcPackaging/opcpackage.h"
#include "HalvCore/errorcode2.h"
#include "HalvCore/expected.h"
#include "HalvCore/filepath2.h"
#include "HalvCore/halvcoreexport.h"

namespace Halvorin::System::IO::Bundle {

/// Documents that belong together, in one package and one file.
class HALVCORE_EXPORT AbstractBundle
{
public:
    virtual ~AbstractBundle();

    /// The package, which is shared: what is done to it is done to the bundle.
    Expected<OpcPackaging::OpcPackage, ErrorCode2> package() const;

    /// Writes the package to a file, whole or not at all.
    Expected<void, ErrorCode2> writeToFile(const FilePath2& path) const;

protected:
    explicit AbstractBundle(OpcPackaging::OpcPackage package);
    AbstractBundle(const AbstractBundle&) = default;
    AbstractBundle& operator=(const AbstractBundle&) = default;

private:
    OpcPackaging::OpcPackage m_package;
};

} // namespace Halvorin::System::IO::Bundle

#endif
