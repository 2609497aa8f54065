#ifndef FRAMEWRITER_H
#define FRAMEWRITER_H

class QByteArray;
class QIODevice;

namespace Halvorin::LSP {

/// Writes a body with its header by the base protocol: "Content-Length: ", the number of bytes and two line
/// ends with one write, the body with a second one.
void writeFrame(QIODevice& device, const QByteArray& body);

} // namespace Halvorin::LSP

#endif
