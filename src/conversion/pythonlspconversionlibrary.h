#ifndef PYTHONLSPCONVERSIONLIBRARY_H
#define PYTHONLSPCONVERSIONLIBRARY_H

#include "conversion/rstconversionlibrary.h"

namespace Halvorin::Text {

/// Converts what a Python language server tells about a symbol: a line or two of code, and often a docstring
/// behind it in reStructuredText, with the sections that NumPy has made customary.
class HALVWIDGETS_EXPORT PythonLSPConversionLibrary : public RSTConversionLibrary
{
public:
    PythonLSPConversionLibrary();

    /// Headings of docstrings that have only the third and fourth level are lifted by two levels.
    QString convertToHTML(const QString& source) const override;

private:
    void initAdditionalRules();
    QString convertSeeAlso(const QStringRef& content) const;
};

} // namespace Halvorin::Text

#endif
