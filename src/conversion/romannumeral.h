#ifndef ROMANNUMERAL_H
#define ROMANNUMERAL_H

#include <QStringRef>

namespace Halvorin::Text {

/// The value of a Roman numeral of either case, up to 3999; 0 for what is none.
int romanValue(const QStringRef& numeral);

} // namespace Halvorin::Text

#endif
