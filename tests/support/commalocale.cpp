#include "support/commalocale.h"

#include "support/process.h"

#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

constexpr const char* localeName = "de_DE";
constexpr const char* folderVariable = "LOCPATH";

std::string printedByC()
{
    char text[16];
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    return text;
}

std::string printedByAStream()
{
    std::ostringstream stream;
    stream << 1.5;
    return stream.str();
}

/// Compiles the locale into a folder and makes the program use it.
/// @return the one before.
std::locale useLocaleIn(const TemporaryFolder& folder)
{
    const std::string target = (folder / localeName).string();
    const ProcessResult result = runProcess({"localedef", "-i", localeName, "-f", "UTF-8", target});
    if (result.exitCode != 0)
        throw std::runtime_error("no locale with a comma could be compiled: " + result.error);
    ::setenv(folderVariable, folder.path().c_str(), 1);
    const std::locale before = std::locale::global(std::locale(localeName));
    ::unsetenv(folderVariable);
    return before;
}

} // namespace

CommaLocale::CommaLocale() : m_before(useLocaleIn(m_folder))
{
    if (printedByC() == "1,5" && printedByAStream() == "1,5")
        return;
    std::locale::global(m_before);
    throw std::runtime_error("the locale writes no comma");
}

CommaLocale::~CommaLocale()
{
    std::locale::global(m_before);
}
