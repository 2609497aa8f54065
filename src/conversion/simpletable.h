#ifndef SIMPLETABLE_H
#define SIMPLETABLE_H

#include <QString>
#include <QStringRef>

namespace Halvorin::Text {

class ConversionLibrary;

/// A simple table of its border, whose "=" say where columns are, the text of its header (null for none) and
/// its content.
QString simpleTableToHtml(const ConversionLibrary& library, const QStringRef& border,
                          const QStringRef& header, const QStringRef& content);

} // namespace Halvorin::Text

#endif
