#include "languageclient/transport/framereader.h"

#include "languageclient/transport/logging.h"

#include <QIODevice>
#include <QJsonDocument>
#include <QPointer>
#include <algorithm>
#include <optional>

namespace Halvorin::LSP {

/// The header lines that stand complete at the front of the device.
struct FrameReader::Block
{
    std::optional<int> length;
    int lines = 0;
    bool endsWithBlank = false;
};

FrameReader::FrameReader(QIODevice& device, Handler handler)
    : QObject(&device), m_device(device), m_handler(std::move(handler))
{
    connect(&device, &QIODevice::readyRead, this, &FrameReader::read);
}

void FrameReader::read()
{
    if (m_reading || m_retired)
        return; // a handler runs an event loop: the outer call goes on behind it
    m_reading = true;
    const QPointer<FrameReader> self(this);
    while (self && readMessage()) {
    }
    if (!self)
        return;
    m_reading = false;
    if (m_retired)
        m_device.deleteLater();
}

void FrameReader::retire()
{
    m_retired = true;
    m_device.setParent(nullptr); // it may outlive whom it belonged to
    if (!m_reading)
        m_device.deleteLater();
}

/// Whether something was taken off the front of the device, so that there may be more.
bool FrameReader::readMessage()
{
    m_device.startTransaction();
    const Block block = readBlock();
    if (block.endsWithBlank && block.lines == 0) { // a blank line between two messages
        m_device.commitTransaction();
        return true;
    }

    bool complete = block.length && m_device.bytesAvailable() >= *block.length;
    if (complete && !block.endsWithBlank) {
        // Without the blank line a body must be told from a header line that has only begun to arrive.
        const QByteArray next = m_device.peek(1);
        complete = next == "{" || next == "[";
    }
    if (!complete) {
        m_device.rollbackTransaction();
        return false;
    }

    const QPointer<FrameReader> self(this);
    hand(m_device.read(*block.length));
    if (!self || m_retired)
        return false;
    m_linesWarnedOf = 0;
    if (m_device.isTransactionStarted()) // a handler may have closed the device
        m_device.commitTransaction();
    return m_device.isOpen();
}

FrameReader::Block FrameReader::readBlock()
{
    Block block;
    int unknownLines = 0;
    for (; m_device.canReadLine(); ++block.lines) {
        const QByteArray line = m_device.readLine();
        if (line.trimmed().isEmpty()) {
            block.endsWithBlank = true;
            break;
        }
        if (line.startsWith("Content-Length:"))
            block.length = std::max(0, line.mid(line.lastIndexOf(':') + 1).toInt());
        else if (!line.startsWith("Content-Type:") && ++unknownLines > m_linesWarnedOf) // not at each reading
            log(System::MessageSeverity::warning, serverChannel,
                QStringLiteral("Unknown header type: ") + QString::fromUtf8(line));
    }
    m_linesWarnedOf = std::max(m_linesWarnedOf, unknownLines);
    return block;
}

/// The current date and time, which is worked out once a millisecond: that asks the system for the time zone,
/// and would take as long as all the rest of a small message.
const QDateTime& FrameReader::now()
{
    if (const qint64 millisecond = QDateTime::currentMSecsSinceEpoch(); millisecond != m_millisecond) {
        m_millisecond = millisecond;
        m_time = QDateTime::fromMSecsSinceEpoch(millisecond);
    }
    return m_time;
}

void FrameReader::hand(const QByteArray& body)
{
    const QDateTime timestamp = now();
    const Handler handler = m_handler; // it may delete this reader
    try {
        handler(QJsonDocument::fromJson(body), timestamp);
    } catch (const std::exception& error) {
        log(System::MessageSeverity::error, clientChannel, QString::fromUtf8(error.what()));
    } catch (...) {
        log(System::MessageSeverity::error, clientChannel, QStringLiteral("unknown error"));
    }
}

} // namespace Halvorin::LSP
