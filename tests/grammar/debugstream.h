#ifndef DEBUGSTREAM_H
#define DEBUGSTREAM_H

#include <QStringList>
#include <QtGlobal>

/// What is written to Qt's debug stream while this stands, a message each.
class DebugStream
{
public:
    DebugStream() : m_before(qInstallMessageHandler(take)) { messages().clear(); }
    DebugStream(const DebugStream&) = delete;
    DebugStream& operator=(const DebugStream&) = delete;
    ~DebugStream() { qInstallMessageHandler(m_before); }

    static QStringList& messages()
    {
        static QStringList list;
        return list;
    }

private:
    static void take(QtMsgType, const QMessageLogContext&, const QString& message)
    {
        messages().append(message);
    }

    QtMessageHandler m_before;
};

#endif
