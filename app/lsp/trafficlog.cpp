#include "lsp/trafficlog.h"

#include "languageclient/lspabstractclient.h"

#include <QJsonDocument>
#include <QJsonObject>
#include <QTimer>
#include <algorithm>
#include <stdexcept>

using Halvorin::LSP::LSPAbstractClient;

namespace {

QByteArray lineOf(const char* from, const QJsonDocument& message, const QDateTime& time)
{
    const QJsonValue content = message.isArray()    ? QJsonValue(message.array())
                               : message.isObject() ? QJsonValue(message.object())
                                                    : QJsonValue(QJsonValue::Null);
    const QJsonObject line{{QStringLiteral("time"), time.toUTC().toString(Qt::ISODateWithMs)},
                           {QStringLiteral("from"), QLatin1String(from)},
                           {QStringLiteral("message"), content}};
    return QJsonDocument(line).toJson(QJsonDocument::Compact) + '\n';
}

} // namespace

TrafficLog::TrafficLog(const std::string& path) : m_file(QFile::decodeName(path.c_str()))
{
    constexpr int standardOutput = 1;
    if (!(path == "-" ? m_file.open(standardOutput, QIODevice::WriteOnly)
                      : m_file.open(QIODevice::WriteOnly | QIODevice::Truncate)))
        throw std::runtime_error(path + ": " + m_file.errorString().toStdString());
}

void TrafficLog::follow(LSPAbstractClient& client)
{
    const auto sent = [this](const QJsonDocument& message, const QDateTime& time) { send(message, time); };
    const auto received = [this](const QJsonDocument& message, const QDateTime& time) {
        receive(message, time);
    };
    QObject::connect(&client, &LSPAbstractClient::messageSent, &m_file, sent);
    QObject::connect(&client, &LSPAbstractClient::messageReceived, &m_file, received);
}

void TrafficLog::finish()
{
    writeSent();
    if (!m_file.flush() || m_file.error() != QFile::NoError)
        throw std::runtime_error(QFile::encodeName(m_file.fileName()).toStdString() + ": " +
                                 m_file.errorString().toStdString());
}

void TrafficLog::send(const QJsonDocument& message, const QDateTime& time)
{
    m_sent.push_back({time, lineOf("client", message, time)});
    QTimer::singleShot(0, &m_file, [this] { writeSent(); });
}

void TrafficLog::receive(const QJsonDocument& message, const QDateTime& time)
{
    const auto answers =
        std::find_if(m_sent.begin(), m_sent.end(), [&time](const Line& line) { return line.time >= time; });
    m_sent.insert(answers, {time, lineOf("server", message, time)});
    writeSent();
}

void TrafficLog::writeSent()
{
    for (const Line& line : m_sent)
        m_file.write(line.text);
    m_sent.clear();
    m_file.flush();
}
