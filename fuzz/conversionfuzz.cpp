#include "conversion/byexpressions.h"
#include "conversion/core/expression.h"
#include "conversion/pythonlspconversionlibrary.h"

#include <cstdint>
#include <cstdlib>

using namespace Halvorin::Text;

namespace {

/// Longer texts take the expressions too long.
constexpr int longestCompared = 60;

/// The conversion comes to an end, and gives what the expressions give where these do.
template <class Library>
void convert(const QString& text)
{
    static const Library library;
    static const ByExpressions<Library> byExpressions;
    const int before = Expression::givenUpCount();
    const QString html = library.convertToHTML(text);
    if (text.size() > longestCompared)
        return;
    const QString expected = byExpressions.convertToHTML(text);
    if (Expression::givenUpCount() == before && html != expected)
        std::abort();
}

} // namespace

/// A text in UTF-8, as reStructuredText and as a docstring.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QString text = QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<int>(size));
    convert<RSTConversionLibrary>(text);
    convert<PythonLSPConversionLibrary>(text);
    return 0;
}
