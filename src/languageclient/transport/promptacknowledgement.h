#ifndef PROMPTACKNOWLEDGEMENT_H
#define PROMPTACKNOWLEDGEMENT_H

class QAbstractSocket;

namespace Halvorin::LSP {

/// Makes a socket acknowledge what arrives at once, and send small writes at once.
///
/// A server that writes header and body apart sends the body only when the header was acknowledged (Nagle's
/// algorithm), and an acknowledgement may wait about 40 ms for company: every answer would take that long.
/// The system falls back by itself, so the wish is renewed around every reading.
void acknowledgePromptly(QAbstractSocket& socket);

} // namespace Halvorin::LSP

#endif
