#include "HalvCore/widetext.h"
#include "Python/pythonlog.h"
#include "Python/pythonstart.h"
#include "host/hostregistrations.h"
#include "host/stringresults.h"

#include <charconv>
#include <string_view>

using Halvorin::System::narrowText;

namespace {

/// Gives the strings of an answer about Python; none, and a line in the log, when it fails.
template <class Answer>
void answer(ScriptResults& results, ScriptSharedBlock& block, const Answer& stringsOf)
{
    const ScriptSharedBlockHold hold(block);
    std::vector<std::string> strings;
    try {
        strings = stringsOf(PythonExecutableManager());
    } catch (const std::exception& error) {
        PythonLog::error(error.what());
    }
    storeStrings(results, strings);
    results.finish();
}

/// Whether an argument is a number other than 0. What is no number is said so in the log.
bool isNonZero(const ScriptArguments& arguments, std::size_t slot)
{
    if (arguments.count(slot) == 0)
        return false;
    const std::string_view text = arguments.text(slot);
    double number = 0;
    const auto [behind, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error == std::errc() && behind == text.data() + text.size())
        return number != 0;
    PythonLog::error("PythonDefaults takes a number, and '" + std::string(text) + "' is none");
    return false;
}

} // namespace

void isPythonLoadedHandler(ScriptArguments&, ScriptResults& results, ScriptSharedBlock& block)
{
    const ScriptSharedBlockHold hold(block);
    *results.booleanSlot() = isPythonLoaded() ? 1 : 0;
    results.finish();
}

void pythonDefaultsHandler(ScriptArguments& arguments, ScriptResults& results, ScriptSharedBlock& block)
{
    answer(results, block, [&arguments](const PythonExecutableManager& manager) {
        const std::string version = manager.defaultVersion();
        const std::vector<std::string> strings{version, narrowText(manager.pythonPath(version)),
                                               narrowText(manager.defaultLanguageServer())};
        if (isNonZero(arguments, 0)) {
            fillPythonVersion(manager);
            fillLanguageServer(manager);
        }
        return strings;
    });
}

void pythonSupportedVersionsHandler(ScriptArguments&, ScriptResults& results, ScriptSharedBlock& block)
{
    answer(results, block,
           [](const PythonExecutableManager& manager) { return manager.supportedVersions(); });
}

void pythonVersionsHandler(ScriptArguments&, ScriptResults& results, ScriptSharedBlock& block)
{
    answer(results, block, [](const PythonExecutableManager& manager) { return manager.usableVersions(); });
}
