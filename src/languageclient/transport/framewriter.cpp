#include "languageclient/transport/framewriter.h"

#include <QByteArray>
#include <QIODevice>

namespace Halvorin::LSP {

void writeFrame(QIODevice& device, const QByteArray& body)
{
    device.write("Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n");
    device.write(body);
}

} // namespace Halvorin::LSP
