#ifndef GRAMMARLOG_H
#define GRAMMARLOG_H

#include <QString>

namespace Halvorin::TextMate {

/// Writes a diagnostic of the category "grammar". A text of a grammar or a line may have control characters,
/// with which it could steer a terminal or forge lines: they become question marks.
void logDiagnostic(QString text);

} // namespace Halvorin::TextMate

#endif
