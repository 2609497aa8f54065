#ifndef FRAMEREADER_H
#define FRAMEREADER_H

#include <QDateTime>
#include <QObject>
#include <functional>

class QIODevice;
class QJsonDocument;

namespace Halvorin::LSP {

/// Cuts the bytes that arrive at a device into JSON documents, by the base protocol of the Language Server
/// Protocol: header lines, a blank line, a body of "Content-Length" bytes.
///
/// What is not complete stays in the device's buffer, inside a transaction that is rolled back, and is read
/// again when more has come; the body is not copied before it is whole. Of one header block to the next the
/// reader keeps nothing, but for the number of its lines that were warned of.
///
/// A body that is no JSON gives a null document: the stream stays in step. So does an exception of the
/// handler, which is logged on the channel "lspclient".
///
/// The reader is a child of its device and goes with it. The handler may delete the device, write to it, and
/// run an event loop: what arrives meanwhile is handed over after the handler has returned.
class FrameReader : public QObject
{
public:
    /// Takes a document and the time at which its body was read.
    using Handler = std::function<void(const QJsonDocument& document, const QDateTime& timestamp)>;

    /// Reads whenever the device has more. The device must be sequential.
    FrameReader(QIODevice& device, Handler handler);

    /// Hands over every message that is complete.
    void read();

    /// Hands over nothing more, and deletes the device when that can be: later, and not before a handler that
    /// is running has returned, however many event loops it runs. A socket does not bear to be deleted inside
    /// its own signal, which is where the handlers are called.
    void retire();
    bool isReading() const { return m_reading; }

private:
    struct Block;

    bool readMessage();
    Block readBlock();
    void hand(const QByteArray& body);
    const QDateTime& now();

    QIODevice& m_device;
    Handler m_handler;
    bool m_reading = false;
    bool m_retired = false;
    int m_linesWarnedOf = 0;
    qint64 m_millisecond = -1; // since the epoch
    QDateTime m_time;          // the same
};

} // namespace Halvorin::LSP

#endif
