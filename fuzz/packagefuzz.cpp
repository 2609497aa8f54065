#include "HalvCore/IO/OpcPackaging/opcpackage.h"

#include <cstdint>
#include <cstdlib>

using namespace Halvorin::System;
using namespace Halvorin::System::IO::OpcPackaging;

/// A package that can be read can be written, and what was written can be read.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const auto package = OpcPackage::fromBytes(ByteArray2(bytes));
    if (!package)
        return 0;
    const auto written = package->toBytes();
    if (!written || !OpcPackage::fromBytes(written.value()))
        std::abort();
    return 0;
}
