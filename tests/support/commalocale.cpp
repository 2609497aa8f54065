#include "support/commalocale.h"

#include "support/process.h"

#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

constexpr const char* folderVariable = "LOCPATH";

constexpr auto localeSource = "LC_NUMERIC\n"
                              "decimal_point \"<U002C>\"\n"
                              "thousands_sep \"<U002E>\"\n"
                              "grouping 3;3\n"
                              "END LC_NUMERIC\n";

/// The characters that the source needs.
std::string characterMap()
{
    std::string map = "<code_set_name> ANSI_X3.4-1968\n<comment_char> %\n<escape_char> /\nCHARMAP\n";
    const char* digits = "0123456789abcdef";
    for (std::size_t code = 0; code < 128; ++code) {
        const std::string number{digits[code / 16], digits[code % 16]};
        map += "<U00" + number + "> /x" + number + " character\n";
    }
    return map + "END CHARMAP\n";
}

/// The same for streams, which would take a locale by name only if it had every category.
class CommaPunctuation : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

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

} // namespace

void writeCommaLocale(const TemporaryFolder& folder)
{
    const std::string source = folder.write("comma.source", localeSource);
    const std::string map = folder.write("characters", characterMap());
    // It warns of the categories that the locale leaves out, and its exit code tells of warnings.
    runProcess({"localedef", "-c", "--no-archive", "-i", source, "-f", map, folder / commaLocaleName});
}

CommaLocale::CommaLocale() : m_cBefore(std::setlocale(LC_NUMERIC, nullptr))
{
    writeCommaLocale(m_folder);
    // Setting the streams' locale sets C's as well: C's own comes last.
    m_streamsBefore = std::locale::global(std::locale(std::locale::classic(), new CommaPunctuation));
    ::setenv(folderVariable, m_folder.path().c_str(), 1);
    std::setlocale(LC_NUMERIC, commaLocaleName);
    ::unsetenv(folderVariable);
    if (printedByC() == "1,5" && printedByAStream() == "1,5")
        return;
    std::locale::global(m_streamsBefore);
    std::setlocale(LC_NUMERIC, m_cBefore.c_str());
    throw std::runtime_error("no locale with a comma could be made");
}

CommaLocale::~CommaLocale()
{
    std::locale::global(m_streamsBefore);
    std::setlocale(LC_NUMERIC, m_cBefore.c_str());
}
