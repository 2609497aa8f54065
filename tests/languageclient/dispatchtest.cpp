#include "languageclient/peer.h"
#include "languageclient/testclient.h"
#include "support/qtcore/hostlog.h"

#include <QSignalSpy>

using namespace Halvorin::LSP;
using Lines = std::vector<std::string>;

namespace {

/// A client that is ready, and its server.
struct ReadyClient
{
    ReadyClient() { peer.shakeHands(); }

    TestClient client;
    Peer peer{client};
};

/// The log lines of a message that the server logs with a type.
Lines logged(const QJsonValue& type, const QString& text)
{
    ReadyClient connected;
    const HostLog log;
    QSignalSpy messages(&connected.client, &LSPAbstractClient::logMessage);
    connected.peer.send({{QStringLiteral("method"), QStringLiteral("window/logMessage")},
                         {QStringLiteral("params"),
                          QJsonObject{{QStringLiteral("type"), type}, {QStringLiteral("message"), text}}}});
    EXPECT_TRUE(QTest::qWaitFor([&messages] { return messages.size() == 1; }));
    return log.lines();
}

void failWithMessage()
{
    throw std::runtime_error("no settings today");
}

void failWithoutMessage()
{
    throw 1;
}

} // namespace

TEST(Dispatch, LogsWhatTheServerLogsWithItsSeverity)
{
    EXPECT_EQ(logged(1, QStringLiteral("m")), Lines{"error: langserv: m"});
    EXPECT_EQ(logged(2, QStringLiteral("m")), Lines{"warning: langserv: m"});
    EXPECT_EQ(logged(3, QStringLiteral("m")), Lines{"info: langserv: m"});
    EXPECT_EQ(logged(4, QStringLiteral("m")), Lines{"diagnostic: langserv: m"});
    EXPECT_EQ(logged(5, QStringLiteral("m")), Lines{"diagnostic: langserv: m"});
}

TEST(Dispatch, LogsAMessageOfAnUnknownTypeWithoutASeverity)
{
    EXPECT_EQ(logged(0, QStringLiteral("m")), Lines{"unspecified: langserv: m"});
    EXPECT_EQ(logged(6, QStringLiteral("m")), Lines{"unspecified: langserv: m"});
    EXPECT_EQ(logged(-1, QStringLiteral("m")), Lines{"unspecified: langserv: m"});
    EXPECT_EQ(logged(QStringLiteral("1"), QStringLiteral("m")), Lines{"unspecified: langserv: m"});
}

TEST(Dispatch, TakesTheComplaintAboutTheNullRootForInformation)
{
    for (const char* separator : {"\\", "/"}) {
        const QString text =
            QStringLiteral("File or directory \"%1<default workspace root>\" does not exist.")
                .arg(QLatin1String(separator));
        EXPECT_EQ(text.size(), 61);
        EXPECT_EQ(logged(1, text), Lines{"info: langserv: " + text.toStdString()});
        EXPECT_EQ(logged(2, text), Lines{"warning: langserv: " + text.toStdString()});
    }
    const QString other = QStringLiteral("File or directory \"/home\" does not exist.");
    EXPECT_EQ(logged(1, other), Lines{"error: langserv: " + other.toStdString()});
}

TEST(Dispatch, PassesOnWhatTheServerShows)
{
    ReadyClient connected;
    QSignalSpy messages(&connected.client, &LSPAbstractClient::showMessage);
    connected.peer.send(json(R"({"method":"window/showMessage","params":{"type":2,"message":"look"}})"));
    EXPECT_TRUE(QTest::qWaitFor([&messages] { return messages.size() == 1; }));
    EXPECT_EQ(messages.at(0).at(0).value<LSPMessageType>(), LSPMessageType::Warning);
    EXPECT_EQ(messages.at(0).at(1).toString(), QStringLiteral("look"));
}

TEST(Dispatch, PassesOnDiagnostics)
{
    ReadyClient connected;
    QSignalSpy notifications(&connected.client, &LSPAbstractClient::publishDiagnosticsNotification);
    connected.peer.send(
        json(R"({"method":"textDocument/publishDiagnostics","params":{"uri":"file:///a.py","version":3,
        "diagnostics":[{"message":"odd","range":{"start":{"line":1,"character":2},"end":{"line":1,"character":4}}}]}})"));
    EXPECT_TRUE(QTest::qWaitFor([&notifications] { return notifications.size() == 1; }));
    const auto notification = notifications.at(0).at(0).value<LSPPublishDiagnosticsNotification>();
    EXPECT_EQ(notification.diagnosticsParams().diagnostics()->at(0).message(), QStringLiteral("odd"));
}

TEST(Dispatch, AnswersTheConfigurationRequestItemByItem)
{
    ReadyClient connected;
    connected.client.setting(QStringLiteral("python.pythonPath"), QStringLiteral("/p"));
    connected.peer.next(); // didChangeConfiguration
    connected.peer.send(json(R"({"id":7,"method":"workspace/configuration","params":{"items":[
        {"section":"python"},{"section":"python.pythonPath","scopeUri":"file:///a.py"},{"section":"other"},{"section":""},{}]}})"));
    EXPECT_EQ(jsonText(connected.peer.next()),
              R"({"id":7,"jsonrpc":"2.0","result":[{"pythonPath":"/p"},"/p",null,null,null]})");
}

TEST(Dispatch, AnswersARequestWhoseIdIsAText)
{
    ReadyClient connected;
    connected.peer.send(json(R"({"id":"a7","method":"workspace/configuration","params":{"items":[]}})"));
    EXPECT_EQ(jsonText(connected.peer.next()), R"({"id":"a7","jsonrpc":"2.0","result":[]})");
}

TEST(Dispatch, AnswersWithAnErrorWhenTheConfigurationFails)
{
    ReadyClient connected;
    const QJsonObject request =
        json(R"({"id":1,"method":"workspace/configuration","params":{"items":[{"section":"a"}]}})");
    connected.client.configurationFailure = failWithMessage;
    connected.peer.send(request);
    EXPECT_EQ(jsonText(connected.peer.next()),
              R"({"error":{"code":-32603,"message":"no settings today"},"id":1,"jsonrpc":"2.0"})");
    connected.client.configurationFailure = failWithoutMessage;
    connected.peer.send(request);
    EXPECT_EQ(jsonText(connected.peer.next()),
              R"({"error":{"code":-32603,"message":"unknown error"},"id":1,"jsonrpc":"2.0"})");
}

TEST(Dispatch, DoesNotAnswerAConfigurationNotification)
{
    ReadyClient connected;
    connected.peer.send(json(R"({"method":"workspace/configuration","params":{"items":[]}})"));
    EXPECT_TRUE(connected.peer.hearsNothing());
}

TEST(Dispatch, AnswersNoOtherRequestOfTheServer)
{
    ReadyClient connected;
    for (const char* request :
         {R"({"id":1,"method":"client/registerCapability","params":{"registrations":[]}})",
          R"({"id":2,"method":"window/showDocument","params":{"uri":"file:///a"}})",
          R"({"id":3,"method":"workspace/applyEdit","params":{"edit":{}}})",
          R"({"id":4,"method":"window/logMessages"})", R"({"id":5,"method":"Workspace/configuration"})",
          R"({"id":6,"method":"textDocument/"})", R"({"id":7,"method":7})", R"({"id":8,"method":""})"})
        connected.peer.send(json(request));
    EXPECT_TRUE(connected.peer.hearsNothing());
}

TEST(Dispatch, SaysWhatItReceives)
{
    ReadyClient connected;
    QSignalSpy received(&connected.client, &LSPAbstractClient::messageReceived);
    QSignalSpy responses(&connected.client, &LSPAbstractClient::responseReceived);
    connected.peer.write(frameOf(R"({"id":99})") + frameOf("no json") + frameOf("[]") + frameOf("{}"));
    EXPECT_TRUE(QTest::qWaitFor([&received] { return received.size() == 4; }));
    EXPECT_EQ(received.at(0).at(0).toJsonDocument().object(), json(R"({"id":99})"));
    EXPECT_TRUE(received.at(0).at(1).toDateTime().isValid());
    EXPECT_TRUE(received.at(1).at(0).toJsonDocument().isNull());
    ASSERT_EQ(responses.size(), 1);
    EXPECT_EQ(responses.at(0).at(0).value<LSPResponseMessage>().toJson(), json(R"({"id":99})"));
}

TEST(Dispatch, SurvivesMessagesOfWrongTypes)
{
    const HostLog log;
    ReadyClient connected;
    QSignalSpy received(&connected.client, &LSPAbstractClient::messageReceived);
    const QByteArray bytes =
        frameOf(R"({"method":"window/logMessage","params":5})") +
        frameOf(R"({"method":"window/logMessage","params":{"type":[],"message":{}}})") +
        frameOf(R"({"method":"window/showMessage"})") +
        frameOf(R"({"method":"textDocument/publishDiagnostics","params":[]})") +
        frameOf(R"({"method":"textDocument/publishDiagnostics","params":{"uri":5,"diagnostics":{"a":1}}})") +
        frameOf(R"({"method":"workspace/configuration","params":{"items":5},"id":{}})") +
        frameOf(R"({"method":"workspace/configuration"})") + frameOf(R"({"id":[],"error":5})") +
        frameOf(R"({"method":{},"id":{}})");
    connected.peer.write(bytes);
    EXPECT_TRUE(QTest::qWaitFor([&received] { return received.size() == 9; }));
    EXPECT_EQ(connected.client.status(), LSPClientStatus::Ready);
}
