#ifndef JSONGRAMMARREADER_H
#define JSONGRAMMARREADER_H

#include "grammar/grammar.h"

class QJsonObject;

namespace Halvorin::TextMate {

/// The grammar in a JSON object. Keys that are not ours are passed over, values of another type count as
/// empty.
GrammarData readJsonGrammar(const QJsonObject& object);

} // namespace Halvorin::TextMate

#endif
