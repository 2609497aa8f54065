#ifndef WHOLECHARACTERS_H
#define WHOLECHARACTERS_H

#include <QString>

namespace Halvorin::Text {

/// The text with U+FFFD for each lone half of a character beyond the basic plane, on which every expression
/// fails. Every place stays as it is.
QString wholeCharacters(QString text);

} // namespace Halvorin::Text

#endif
