#include "diagram/chartusage.h"

#include <cstdint>
#include <cstdlib>
#include <exception>

/// The coverage of a run is refused with a message, or says something of every state.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        const ChartUsage usage({reinterpret_cast<const char*>(data), size});
        usage.entered("a");
        usage.taken("t");
    } catch (const std::exception& error) {
        if (*error.what() == '\0')
            std::abort();
    }
    return 0;
}
