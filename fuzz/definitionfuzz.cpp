#include "statechart/check/definitioncheck.h"

#include <cstdint>
#include <cstdlib>

/// A check never raises, and each finding lies within the text.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    for (const Finding& finding : checkDefinition(text)) {
        if (finding.offset + finding.length > size || finding.column > finding.sourceLine.size() + 2 ||
            finding.text.empty())
            std::abort();
    }
    return 0;
}
