#include "languageclient/peer.h"
#include "languageclient/testclient.h"
#include "support/process.h"
#include "support/qtcore/hostlog.h"

#include <QCoreApplication>
#include <QNetworkInterface>
#include <QPointer>
#include <QSignalSpy>
#include <array>
#include <cerrno>
#include <cstddef>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>

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

/// From now on, in this process, the system refuses to listen on any socket. Everything else works as before,
/// which the sanitizers need: they open pipes and files of their own.
bool refuseToListen()
{
    std::array filter{
        sock_filter BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        sock_filter BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_listen, 0, 1),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EACCES),
        sock_filter BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    const sock_fprog program{static_cast<unsigned short>(filter.size()), filter.data()};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
           ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
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

TEST(Handshake, NeverComesWhenTheClientCannotListen)
{
    const int code = runInChild([] {
        if (!refuseToListen())
            return 2;
        const HostLog log;
        TestClient client;
        client.didClose(LSPTextDocumentIdentifier(QUrl(QStringLiteral("file:///a.py")))); // waits for ever
        const Lines lines = log.lines();
        const std::string start = "warning: langserv: Language client failed to start: ";
        const bool isTold =
            lines.size() == 1 && lines[0].starts_with(start) && lines[0].size() > start.size();
        return isTold && client.status() == NotConnected ? 0 : 1;
    });
    EXPECT_EQ(code, 0);
}

TEST(Handshake, IsFollowedByAShutdownThatCameTooEarly)
{
    TestClient client;
    client.shutdown();
    EXPECT_EQ(client.status(), ShuttingDown);
    Peer peer(client);
    peer.shakeHands();
    const QJsonObject request = peer.next();
    EXPECT_EQ(method(request), QLatin1String("shutdown"));
    peer.answer(request, QJsonValue::Null);
    EXPECT_EQ(method(peer.next()), QLatin1String("exit"));
    EXPECT_EQ(client.status(), Exiting);
}

TEST(Handshake, GoesOnWhenHandlersThrow)
{
    const HostLog log;
    TestClient client;
    QObject::connect(&client, &LSPAbstractClient::statusChanged,
                     [] { throw std::runtime_error("not ready for that"); });
    QObject::connect(&client, &LSPAbstractClient::messageSent, [] { throw 1; });
    QSignalSpy gone(&client, &LSPAbstractClient::serverDisconnected);
    QObject::connect(&client, &LSPAbstractClient::serverDisconnected,
                     [] { throw std::runtime_error("gone"); });
    {
        Peer peer(client);
        peer.shakeHands();
    }
    EXPECT_TRUE(QTest::qWaitFor([&gone] { return gone.size() == 1; }));
    EXPECT_EQ(log.linesOf("error: "),
              (Lines{"error: lspclient: not ready for that", "error: lspclient: unknown error",
                     "error: lspclient: not ready for that", "error: lspclient: unknown error",
                     "error: lspclient: not ready for that", "error: lspclient: gone"}));
}

TEST(Handshake, IsGivenUpWhenTheServerGoesWhileAHandlerRunsAnEventLoop)
{
    TestClient client;
    QSignalSpy gone(&client, &LSPAbstractClient::serverDisconnected);
    QTcpSocket server;
    const auto connection = QObject::connect(&client, &LSPAbstractClient::statusChanged, [&] {
        server.abort();
        EXPECT_TRUE(QTest::qWaitFor([&gone] { return gone.size() == 1; }));
    });
    server.connectToHost(QHostAddress::LocalHost, portOf(client));
    EXPECT_TRUE(QTest::qWaitFor([&gone] { return gone.size() == 1; }));
    QObject::disconnect(connection);
    EXPECT_EQ(client.status(), Connected);
    Peer next(client);
    next.shakeHands();
    EXPECT_EQ(client.status(), Ready);
}

TEST(Handshake, HasSignalsWhoseTypesAreRegistered)
{
    const TestClient client;
    for (const char* type :
         {"LSPMessageType", "LSPMessage", "LSPClientStatus", "LSPPublishDiagnosticsNotification",
          "LSPResponseMessage", "LSPServerCapabilities"})
        EXPECT_NE(QMetaType::type(QByteArray("Halvorin::LSP::") + type), QMetaType::UnknownType) << type;
    EXPECT_NE(QMetaType::type("QProcess::ExitStatus"), QMetaType::UnknownType);
}

TEST(Handshake, LeavesASocketThatAcknowledgesAtOnceAfterEachReading)
{
    TestClient client;
    Peer peer(client);
    peer.shakeHands();
    const qintptr descriptor = client.findChild<QTcpSocket*>()->socketDescriptor();
    std::vector<int> quick;
    QObject::connect(&client, &LSPAbstractClient::messageReceived, [&] {
        int value = 0;
        socklen_t size = sizeof value;
        ::getsockopt(static_cast<int>(descriptor), IPPROTO_TCP, TCP_QUICKACK, &value, &size);
        quick.push_back(value);
    });
    for (int exchange = 0; exchange < 5; ++exchange)
        EXPECT_TRUE(peer.hearsNothing()); // a question and its answer
    EXPECT_EQ(quick, (std::vector<int>(5, 1)));
}

TEST(Handshake, GoesOnWhenAHandlerOfTheCapabilitiesThrows)
{
    TestClient client;
    QObject::connect(&client, &LSPAbstractClient::serverCapabilitiesReceived,
                     [] { throw std::runtime_error("too many"); });
    Peer peer(client);
    peer.shakeHands();
    EXPECT_EQ(client.status(), Ready);
}

TEST(Handshake, PassesOverAServerThatWentWhileItWasPending)
{
    TestClient client;
    QSignalSpy gone(&client, &LSPAbstractClient::serverDisconnected);
    {
        Peer first(client);
        first.shakeHands();
        {
            const HostLog log;
            Peer second(client);
            EXPECT_TRUE(QTest::qWaitFor([&log] { return !log.linesOf("warning: ").empty(); }));
        }
        EXPECT_TRUE(QTest::qWaitFor([&client] {
            for (const QTcpSocket* socket : client.findChildren<QTcpSocket*>()) {
                if (socket->state() == QAbstractSocket::UnconnectedState)
                    return true; // the client has heard that the second one is gone
            }
            return false;
        }));
    }
    EXPECT_TRUE(QTest::qWaitFor([&gone] { return gone.size() == 1; }));
    Peer third(client);
    third.shakeHands();
    EXPECT_EQ(client.status(), Ready);
}

TEST(Handshake, LeavesWhatAPendingConnectionSendsOutside)
{
    const HostLog log;
    TestClient client;
    Peer peer(client);
    peer.shakeHands();
    Peer other(client);
    EXPECT_TRUE(QTest::qWaitFor([&log] { return !log.linesOf("warning: ").empty(); }));
    other.write(QByteArray(50'000'000, 'x'));
    EXPECT_TRUE(peer.hearsNothing());
    for (const QTcpSocket* socket : client.findChildren<QTcpSocket*>())
        EXPECT_LE(socket->bytesAvailable(), 4096);
}

TEST(Handshake, SaysExitOnceToTwoShutdowns)
{
    TestClient client;
    client.shutdown();
    Peer peer(client);
    peer.shakeHands();
    client.shutdown();
    const QJsonObject first = peer.next();
    const QJsonObject second = peer.next();
    peer.answer(first, QJsonValue::Null);
    peer.answer(second, QJsonValue::Null);
    EXPECT_EQ(method(peer.next()), QLatin1String("exit"));
    QTest::qWait(50);
    EXPECT_EQ(peer.socket().bytesAvailable(), 0);
}
