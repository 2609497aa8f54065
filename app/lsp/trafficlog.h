#ifndef TRAFFICLOG_H
#define TRAFFICLOG_H

#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <string>
#include <vector>

class QJsonDocument;

namespace Halvorin::LSP {
class LSPAbstractClient;
}

/// Keeps what a client sends and receives, a JSON object a line: "time" (UTC, ISO 8601), "from" ("client" or
/// "server") and "message". Lines are in the file as soon as the event loop runs again, so that the file
/// tells also of a conversation that broke off.
class TrafficLog
{
public:
    /// @throws std::runtime_error when the file cannot be written
    explicit TrafficLog(const std::string& path);

    void follow(Halvorin::LSP::LSPAbstractClient& client);

    /// To call in the end. @throws std::runtime_error when not everything could be written
    void finish();

private:
    struct Line
    {
        QDateTime time;
        QByteArray text;
    };

    void send(const QJsonDocument& message, const QDateTime& time);
    void receive(const QJsonDocument& message, const QDateTime& time);
    void writeSent();

    QFile m_file;
    // The client hears of a message before we do, and may have answered it when we hear of it.
    std::vector<Line> m_sent;
};

#endif
