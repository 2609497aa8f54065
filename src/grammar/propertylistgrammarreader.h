#ifndef PROPERTYLISTGRAMMARREADER_H
#define PROPERTYLISTGRAMMARREADER_H

#include "grammar/grammar.h"

class QIODevice;

namespace Halvorin::TextMate {

/// The grammar in an XML property list. Keys that are not ours are passed over; what stands before a fault of
/// the XML counts.
GrammarData readPropertyListGrammar(QIODevice& device);

} // namespace Halvorin::TextMate

#endif
