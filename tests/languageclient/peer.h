#ifndef PEER_H
#define PEER_H

#include "languageclient/lspabstractclient.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTest>
#include <gtest/gtest.h>
#include <string>

/// The port that a client listens on.
inline quint16 portOf(const Halvorin::LSP::LSPAbstractClient& client)
{
    return client.findChild<QTcpServer*>()->serverPort();
}

inline QByteArray frameOf(const QByteArray& body)
{
    return "Content-Length: " + QByteArray::number(body.size()) + "\r\n\r\n" + body;
}

inline std::string jsonText(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}

/// The JSON object that the text is.
inline QJsonObject json(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    EXPECT_EQ(error.error, QJsonParseError::NoError) << text.toStdString();
    return document.object();
}

/// A server inside the test: connects to a client, keeps what the client sends, and sends what it is told.
class Peer
{
public:
    explicit Peer(const Halvorin::LSP::LSPAbstractClient& client)
    {
        m_socket.connectToHost(QHostAddress::LocalHost, portOf(client));
        EXPECT_TRUE(
            QTest::qWaitFor([this] { return m_socket.state() == QAbstractSocket::ConnectedState; }, 60'000));
    }

    QTcpSocket& socket() { return m_socket; }

    /// The next message of the client's, waited for. The header must be exactly that of the base protocol.
    QJsonObject next()
    {
        QByteArray body;
        const bool come =
            QTest::qWaitFor([this, &body] { return takeFrame(body); }, 60'000); // far beyond need
        EXPECT_TRUE(come) << "no message came";
        return json(body);
    }

    /// Whether the client sends nothing more. One that is ready is asked something, whose answer must be the
    /// next message; any other one is given time.
    bool hearsNothing()
    {
        if (m_ready) {
            send(json(R"({"id":"fence","method":"workspace/configuration","params":{"items":[]}})"));
            return next() == json(R"({"id":"fence","jsonrpc":"2.0","result":[]})");
        }
        QTest::qWait(50);
        m_buffer += m_socket.readAll();
        return m_buffer.isEmpty();
    }

    void write(const QByteArray& bytes)
    {
        m_socket.write(bytes);
        m_socket.flush();
    }

    void send(const QJsonObject& message) { write(frameOf(QByteArray::fromStdString(jsonText(message)))); }

    /// Answers a request of the client's.
    void answer(const QJsonObject& request, const QJsonValue& result)
    {
        send({{QStringLiteral("jsonrpc"), QStringLiteral("2.0")},
              {QStringLiteral("id"), request.value(QLatin1String("id"))},
              {QStringLiteral("result"), result}});
    }

    /// Answers "initialize" and takes "initialized".
    void shakeHands(const QJsonObject& capabilities = {})
    {
        const QJsonObject request = next();
        EXPECT_EQ(request.value(QLatin1String("method")), QLatin1String("initialize"));
        answer(request, QJsonObject{{QStringLiteral("capabilities"), capabilities}});
        EXPECT_EQ(next().value(QLatin1String("method")), QLatin1String("initialized"));
        m_ready = true;
    }

private:
    bool takeFrame(QByteArray& body)
    {
        m_buffer += m_socket.readAll();
        const int end = m_buffer.indexOf("\r\n\r\n");
        if (end < 0)
            return false;
        const QByteArray name = "Content-Length: ";
        EXPECT_TRUE(m_buffer.startsWith(name)) << m_buffer.left(end).toStdString();
        const int length = m_buffer.mid(name.size(), end - name.size()).toInt();
        if (m_buffer.size() < end + 4 + length)
            return false;
        body = m_buffer.mid(end + 4, length);
        m_buffer.remove(0, end + 4 + length);
        return true;
    }

    QTcpSocket m_socket;
    QByteArray m_buffer;
    bool m_ready = false;
};

#endif
