#include "statechart/check/definitioncheck.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/json/jsonreader.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <sstream>

namespace {

bool compiles(std::string_view text)
{
    std::istringstream input{std::string(text)};
    try {
        compileDeviceStateChart(asObject(readDocument(input)), DDCodeBuilderFactory::createCodeBuilder());
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

} // namespace

/// A check never raises, each finding lies within the text, and there is an error where a compile fails and
/// nowhere else.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const std::vector<Finding> findings = checkDefinition(text);
    for (const Finding& finding : findings) {
        if (finding.offset + finding.length > size || finding.column > finding.sourceLine.size() + 2 ||
            finding.text.empty())
            std::abort();
    }
    const bool hasError = std::any_of(findings.begin(), findings.end(), [](const Finding& finding) {
        return finding.severity == Finding::Severity::error;
    });
    if (compiles(text) == hasError)
        std::abort();
    return 0;
}
