#include "conversion/plain/plainlibrary.h"
#include "conversion/pythonlspconversionlibrary.h"

#include <cstdint>
#include <cstdlib>

using namespace Halvorin::Text;

namespace {

/// Longer texts take expressions too long.
constexpr int longestCompared = 200;

/// The conversion comes to an end, and gives what its plain form gives where that does.
void convert(const RSTConversionLibrary& library, PlainLibrary& plain, const QString& text)
{
    const QString html = library.convertToHTML(text);
    if (text.size() > longestCompared)
        return;
    const QString expected = plain.convertToHtml(text);
    if (!plain.isGivenUp() && html != expected)
        std::abort();
}

} // namespace

/// A text in UTF-8, as reStructuredText and as a docstring.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const RSTConversionLibrary reStructuredText;
    static const PythonLSPConversionLibrary docstrings;
    static PlainLibrary plain(false);
    static PlainLibrary plainDocstrings(true);
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    convert(reStructuredText, plain, text);
    convert(docstrings, plainDocstrings, text);
    return 0;
}
