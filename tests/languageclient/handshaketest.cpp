#include "languageclient/peer.h"
#include "languageclient/testclient.h"
#include "support/qtcore/hostlog.h"

#include <QCoreApplication>
#include <QNetworkInterface>
#include <QPointer>
#include <QSignalSpy>

using namespace Halvorin::LSP;
using enum LSPClientStatus;
using Lines = std::vector<std::string>;

namespace {

QString method(const QJsonObject& message)
{
    return message.value(QLatin1String("method")).toString();
}

/// The statuses of each signal of a spy.
std::vector<LSPClientStatus> statuses(const QSignalSpy& spy)
{
    std::vector<LSPClientStatus> found;
    for (const QList<QVariant>& signal : spy)
        found.push_back(signal.at(0).value<LSPClientStatus>());
    return found;
}

} // namespace

TEST(Handshake, SaysOnWhichPortItListens)
{
    const HostLog log;
    const TestClient client;
    EXPECT_EQ(log.lines(),
              Lines{"info: langserv: Language client started on port: " + std::to_string(portOf(client))});
    EXPECT_EQ(client.status(), NotConnected);
}

TEST(Handshake, ListensOnTheLoopbackOnly)
{
    const TestClient client;
    EXPECT_EQ(client.findChild<QTcpServer*>()->serverAddress(), QHostAddress(QHostAddress::LocalHost));
    for (const QHostAddress& address : QNetworkInterface::allAddresses()) {
        if (address.isLoopback() || address.protocol() != QAbstractSocket::IPv4Protocol)
            continue;
        QTcpSocket stranger;
        stranger.connectToHost(address, portOf(client));
        EXPECT_FALSE(stranger.waitForConnected(200)) << address.toString().toStdString();
    }
}

TEST(Handshake, SendsInitializeWithTheIdZeroTheProcessAndNoRoot)
{
    TestClient client;
    Peer peer(client);
    const QJsonObject request = peer.next();
    EXPECT_EQ(request.keys(), (QStringList{QStringLiteral("id"), QStringLiteral("jsonrpc"),
                                           QStringLiteral("method"), QStringLiteral("params")}));
    EXPECT_EQ(request.value(QLatin1String("id")), QJsonValue(0));
    EXPECT_EQ(request.value(QLatin1String("jsonrpc")), QLatin1String("2.0"));
    EXPECT_EQ(method(request), QLatin1String("initialize"));
    EXPECT_EQ(request.value(QLatin1String("params")).toObject(),
              (QJsonObject{{QStringLiteral("processId"), QCoreApplication::applicationPid()},
                           {QStringLiteral("rootUri"), QJsonValue::Null},
                           {QStringLiteral("capabilities"), QJsonObject()}}));
    EXPECT_EQ(client.status(), Initializing);
}

TEST(Handshake, GoesThroughItsStatusesInOrder)
{
    TestClient client;
    QSignalSpy statusChanges(&client, &LSPAbstractClient::statusChanged);
    QSignalSpy ready(&client, &LSPAbstractClient::clientReady);
    Peer peer(client);
    peer.shakeHands();
    EXPECT_EQ(client.status(), Ready);
    EXPECT_EQ(statuses(statusChanges), (std::vector{Connected, Initializing, Ready}));
    EXPECT_EQ(ready.size(), 1);
}

TEST(Handshake, KeepsWhatTheServerCanDo)
{
    TestClient client;
    EXPECT_FALSE(client.serverCapabilities());
    QSignalSpy received(&client, &LSPAbstractClient::serverCapabilitiesReceived);
    Peer peer(client);
    peer.shakeHands(json(R"({"hoverProvider":true})"));
    ASSERT_TRUE(client.serverCapabilities());
    EXPECT_TRUE(
        client.serverCapabilities()->supports(LSPServerCapabilities::ServerCapability::HoverProvider));
    EXPECT_EQ(received.size(), 1);
}

TEST(Handshake, KnowsTheCapabilitiesBeforeTheStatusIsReady)
{
    TestClient client;
    bool known = false;
    QObject::connect(&client, &LSPAbstractClient::statusChanged, [&](LSPClientStatus status) {
        if (status == Ready)
            known = client.serverCapabilities().has_value();
    });
    Peer peer(client);
    peer.shakeHands();
    EXPECT_TRUE(known);
}

TEST(Handshake, ReadsTheTriggerKeysOfTheServer)
{
    TestClient client;
    Peer peer(client);
    peer.shakeHands(json(R"json({"completionProvider":{"triggerCharacters":[".","->"]},
        "signatureHelpProvider":{"triggerCharacters":["("],"retriggerCharacters":[",",")"]}})json"));
    EXPECT_EQ(client.completionTriggerKeys(),
              (std::vector<int>{Qt::Key_Period, Qt::Key_Minus, Qt::Key_Greater}));
    EXPECT_EQ(client.signatureTriggerKeys(), std::vector<int>{Qt::Key_ParenLeft});
    EXPECT_EQ(client.signatureRetriggerKeys(), (std::vector<int>{Qt::Key_Comma, Qt::Key_ParenRight}));
}

TEST(Handshake, ForgetsTheTriggerKeysOfAnEarlierServer)
{
    TestClient client;
    Q_EMIT client.serverCapabilitiesReceived(
        LSPServerCapabilities(json(R"({"completionProvider":{"triggerCharacters":["."]},
                 "signatureHelpProvider":{"triggerCharacters":["("],"retriggerCharacters":[","]}})")));
    EXPECT_EQ(client.completionTriggerKeys().size(), 1U);
    Q_EMIT client.serverCapabilitiesReceived(LSPServerCapabilities());
    EXPECT_TRUE(client.completionTriggerKeys().empty());
    EXPECT_TRUE(client.signatureTriggerKeys().empty());
    EXPECT_TRUE(client.signatureRetriggerKeys().empty());
}

TEST(Handshake, EndsWithALogLineWhenTheServerRefuses)
{
    const HostLog log;
    TestClient client;
    client.didClose(LSPTextDocumentIdentifier(QUrl(QStringLiteral("file:///a.py"))));
    Peer peer(client);
    const QJsonObject request = peer.next();
    peer.send({{QStringLiteral("id"), request.value(QLatin1String("id"))},
               {QStringLiteral("error"), json(R"({"code":-32603,"message":"not today"})")}});
    EXPECT_TRUE(QTest::qWaitFor([&log] { return !log.linesOf("error: ").empty(); }));
    EXPECT_EQ(log.linesOf("error: "), Lines{"error: lspclient: not today"});
    EXPECT_EQ(client.status(), Initializing);
    EXPECT_FALSE(client.serverCapabilities());
    EXPECT_TRUE(peer.hearsNothing()); // what waits goes on waiting
}

TEST(Handshake, EndsWithALogLineWhenTheResultIsNull)
{
    const HostLog log;
    TestClient client;
    Peer peer(client);
    peer.answer(peer.next(), QJsonValue::Null);
    EXPECT_TRUE(QTest::qWaitFor([&log] { return !log.linesOf("error: ").empty(); }));
    EXPECT_EQ(log.linesOf("error: "), Lines{"error: lspclient: null response"});
    EXPECT_EQ(client.status(), Initializing);
}

TEST(Handshake, EndsWithALogLineWhenTheResultIsOfAnotherType)
{
    for (const char* result : {R"({"result":5})", R"({"result":{}})", R"({"result":[]})"}) {
        const HostLog log;
        TestClient client;
        Peer peer(client);
        peer.answer(peer.next(), json(result).value(QLatin1String("result")));
        EXPECT_TRUE(QTest::qWaitFor([&log] { return !log.linesOf("error: ").empty(); }));
        EXPECT_EQ(log.linesOf("error: "), Lines{"error: lspclient: invalid conversion"});
        EXPECT_EQ(client.status(), Initializing);
    }
}

TEST(Handshake, EndsWithALogLineWhenTheCapabilitiesCannotBeMade)
{
    const HostLog log;
    TestClient client;
    client.capabilitiesFailure = true;
    Peer peer(client);
    EXPECT_TRUE(peer.hearsNothing());
    EXPECT_EQ(log.linesOf("error: "), Lines{"error: lspclient: no capabilities"});
    EXPECT_EQ(client.status(), Connected);
}

TEST(Handshake, TakesNoNullIdForTheAnswerToInitialize)
{
    TestClient client;
    Peer peer(client);
    const QJsonObject request = peer.next();
    for (const char* answer :
         {R"({"id":null,"result":{"capabilities":{}}})", R"({"id":"0","result":{"capabilities":{}}})",
          R"({"id":0.5,"result":{"capabilities":{}}})", R"({"id":false,"result":{"capabilities":{}}})"})
        peer.send(json(answer));
    EXPECT_TRUE(peer.hearsNothing());
    EXPECT_EQ(client.status(), Initializing);
    peer.answer(request, json(R"({"capabilities":{}})"));
    EXPECT_EQ(method(peer.next()), QLatin1String("initialized"));
}

TEST(Handshake, TakesTheFirstOfTwoAnswersToInitialize)
{
    TestClient client;
    QSignalSpy ready(&client, &LSPAbstractClient::clientReady);
    Peer peer(client);
    const QJsonObject request = peer.next();
    const QByteArray answer = frameOf(R"({"id":0,"result":{"capabilities":{}}})");
    peer.write(answer + answer + answer);
    EXPECT_EQ(method(peer.next()), QLatin1String("initialized"));
    EXPECT_TRUE(peer.hearsNothing());
    EXPECT_EQ(ready.size(), 1);
    EXPECT_TRUE(client.findChildren<LSPAbstractRequestMonitor*>().isEmpty());
}

TEST(Handshake, LeavesASecondConnectionPending)
{
    const HostLog log;
    TestClient client;
    Peer peer(client);
    Peer other(client);
    peer.shakeHands();
    other.send(json(R"({"id":0,"result":{"capabilities":{}}})"));
    EXPECT_TRUE(other.hearsNothing());
    EXPECT_EQ(other.socket().state(), QAbstractSocket::ConnectedState);
    EXPECT_EQ(log.linesOf("warning: "),
              Lines{"warning: langserv: Multiple incoming connections unsupported"});
    EXPECT_EQ(client.status(), Ready);
}

TEST(Handshake, MeetsTheNextServerWhenTheFirstIsGone)
{
    TestClient client;
    QSignalSpy gone(&client, &LSPAbstractClient::serverDisconnected);
    {
        Peer peer(client);
        peer.shakeHands();
    }
    EXPECT_TRUE(QTest::qWaitFor([&gone] { return gone.size() == 1; }));
    EXPECT_EQ(client.status(), Ready);
    Peer next(client);
    next.shakeHands();
    EXPECT_EQ(client.status(), Ready);
}

TEST(Handshake, LogsWhatTheServerLogsOnceAlsoBehindASecondServer)
{
    const HostLog log;
    TestClient client;
    QSignalSpy gone(&client, &LSPAbstractClient::serverDisconnected);
    {
        Peer peer(client);
        peer.shakeHands();
    }
    EXPECT_TRUE(QTest::qWaitFor([&gone] { return gone.size() == 1; }));
    Peer next(client);
    next.shakeHands();
    next.send(json(R"({"method":"window/logMessage","params":{"type":2,"message":"once"}})"));
    EXPECT_TRUE(QTest::qWaitFor([&log] { return !log.linesOf("warning: ").empty(); }));
    EXPECT_EQ(log.linesOf("warning: "), Lines{"warning: langserv: once"});
}

TEST(Handshake, DeletesAClientWhoseServerNeverCameAtOnce)
{
    const QPointer<TestClient> client = new TestClient;
    client->deleteLater();
    QCoreApplication::sendPostedEvents(client, QEvent::DeferredDelete);
    EXPECT_FALSE(client);
}
