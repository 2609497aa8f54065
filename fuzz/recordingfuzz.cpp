#include "reports/recording.h"

#include <cstdint>
#include <cstdlib>
#include <exception>
#include <optional>

namespace {

std::optional<RunInputs> read(std::string_view text)
{
    try {
        return readRecording(text);
    } catch (const std::exception&) {
        return std::nullopt;
    }
}

} // namespace

/// A recording is refused, or what is read from it can be written and read to the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::optional<RunInputs> inputs = read({reinterpret_cast<const char*>(data), size});
    if (!inputs)
        return 0;
    const std::string text = recordingOf(*inputs);
    const std::optional<RunInputs> again = read(text);
    if (!again || recordingOf(*again) != text)
        std::abort();
    return 0;
}
