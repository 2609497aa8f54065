#ifndef CHUNKEDDEVICE_H
#define CHUNKEDDEVICE_H

#include <QByteArray>
#include <QIODevice>
#include <algorithm>
#include <cstring>

/// A sequential device, like a socket, that has what feed() gave it. Writing appends to written().
class ChunkedDevice : public QIODevice
{
public:
    ChunkedDevice() { open(ReadWrite); }

    /// Lets the bytes arrive, and says so.
    void feed(const QByteArray& bytes)
    {
        m_arrived.remove(0, m_read);
        m_read = 0;
        m_arrived += bytes;
        Q_EMIT readyRead();
    }

    const QByteArray& written() const { return m_written; }

    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override { return unread() + QIODevice::bytesAvailable(); }
    bool canReadLine() const override
    {
        return m_arrived.indexOf('\n', m_read) >= 0 || QIODevice::canReadLine();
    }

protected:
    qint64 readData(char* data, qint64 maximum) override
    {
        const qint64 count = std::min<qint64>(maximum, unread());
        std::memcpy(data, m_arrived.constData() + m_read, static_cast<std::size_t>(count));
        m_read += static_cast<int>(count);
        return count;
    }

    qint64 writeData(const char* data, qint64 count) override
    {
        m_written.append(data, static_cast<int>(count));
        return count;
    }

private:
    int unread() const { return m_arrived.size() - m_read; }

    QByteArray m_arrived;
    int m_read = 0;
    QByteArray m_written;
};

#endif
