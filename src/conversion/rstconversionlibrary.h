#ifndef RSTCONVERSIONLIBRARY_H
#define RSTCONVERSIONLIBRARY_H

#include "conversion/core/conversionlibrary.h"
#include "conversion/scanners/markerform.h"
#include "halvwidgetsexport.h"

namespace Halvorin::Text {

class Captures;

/// Converts a subset of reStructuredText to the HTML that a QTextDocument shows:
///
///     RSTConversionLibrary library;
///     library.convertToHTML("**bold** text"); // "<p><b>bold</b> text</p>"
///
/// It is made for documentation strings: no reference targets, footnotes or substitutions. Lines end with
/// "\n"; nothing is escaped, so what is HTML in the source is HTML in the result. Time and memory
/// grow with the text; nothing throws but what tells that there is no memory.
class HALVWIDGETS_EXPORT RSTConversionLibrary : public ConversionLibrary
{
public:
    using EnumeratedListStyle = MarkerForm;

    RSTConversionLibrary();

    virtual QString convertToHTML(const QString& source) const;

protected:
    void initBodyElementRules();
    void initInlineRules();

    /// What lies between the first opening tag of a paragraph and the last closing one; the text itself
    /// without these.
    QString removeSurroundingParagraphTags(QString&& text) const;

private:
    QString convertHeading(const QStringRef& title, const QStringRef& type) const;
    QString convertBulletList(const Captures& list) const;
    QString convertDefinitionList(const Captures& list) const;
    QString convertDirectives(const Captures& directive) const;
    QString convertGridTable(const Captures& table) const;
    QString convertLiteralBlock(const Captures& block) const;
    QString convertSimpleTable(const Captures& table) const;
    QString convertEnumeratedListNumeric(const QStringRef& xrows, const QStringRef& arows,
                                         EnumeratedListStyle style) const;
    QString convertEnumeratedListAlphabetic(const QStringRef& xrows, const QStringRef& arows,
                                            EnumeratedListStyle style, bool isUpperCase) const;
    QString convertEnumeratedListRomanNumeral(const QStringRef& xrows, const QStringRef& arows,
                                              EnumeratedListStyle style, bool isUpperCase) const;
};

} // namespace Halvorin::Text

#endif
