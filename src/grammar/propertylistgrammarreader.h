#ifndef PROPERTYLISTGRAMMARREADER_H
#define PROPERTYLISTGRAMMARREADER_H

#include "grammar/grammar.h"

class QIODevice;

namespace Halvorin::TextMate {

/// The grammar in an XML property list. Keys that are not ours are passed over; what stands before a fault of
/// the XML counts, and `error` says what the fault is.
GrammarData readPropertyListGrammar(QIODevice& device, QString& error);

} // namespace Halvorin::TextMate

#endif
