#include "servedclient.h"

#include <QProcess>
#include <functional>

using namespace Halvorin::LSP;
using enum LSPClientStatus;

namespace {

bool isDeleted(const ServedClient& served)
{
    return waitFor([&served] { return !served.client; });
}

} // namespace

TEST(Destruction, OfAReadyClientShutsTheServerDownInOrderAndWaitsForItsEnd)
{
    const ServedClient served;
    ASSERT_TRUE(served.reaches(Ready));
    bool serverWasGone = false;
    QObject::connect(served.client, &QObject::destroyed,
                     [&] { serverWasGone = served.server.running().empty(); });
    served.client->deleteLater();
    QCoreApplication::sendPostedEvents(served.client, QEvent::DeferredDelete);
    EXPECT_TRUE(served.client) << "it is to wait";
    EXPECT_TRUE(isDeleted(served));
    EXPECT_TRUE(serverWasGone);
    EXPECT_EQ(served.statuses,
              (ServedClient::Statuses{Connected, Initializing, Ready, ShuttingDown, Exiting, Exited}));
    EXPECT_EQ(served.server.receivedMethods(),
              (QStringList{QStringLiteral("initialize"), QStringLiteral("initialized"),
                           QStringLiteral("shutdown"), QStringLiteral("exit")}));
    ASSERT_EQ(served.server.events(QStringLiteral("exit")).size(), 1U);
    EXPECT_EQ(served.server.events(QStringLiteral("exit")).at(0).value(QLatin1String("code")), QJsonValue(0));
}

TEST(Destruction, OfAReadyClientDoesNotWaitForRequestsInFlight)
{
    const ServedClient served(R"({"on": {"textDocument/hover": []}})");
    ASSERT_TRUE(served.reaches(Ready));
    served.askForHover();
    ASSERT_TRUE(served.server.waitForMessage(QStringLiteral("textDocument/hover")));
    served.client->deleteLater();
    EXPECT_TRUE(isDeleted(served));
    EXPECT_TRUE(served.serverIsGone());
}

TEST(Destruction, OfTheProcessAloneEndsTheServerAndLeavesTheClient)
{
    const ServedClient served;
    ASSERT_TRUE(served.reaches(Ready));
    delete served.client->findChild<QProcess*>();
    EXPECT_TRUE(served.serverIsGone());
    EXPECT_TRUE(waitFor([&served] { return served.disconnections == 1; }));
    EXPECT_TRUE(served.client);
}

TEST(Destruction, AskedForTwiceComesAtOnce)
{
    for (const char* method : {"shutdown", "exit"}) {
        const ServedClient served(R"({"on": {")" + QByteArray(method) + R"(": []}})");
        ASSERT_TRUE(served.reaches(Ready));
        served.client->deleteLater();
        ASSERT_TRUE(served.server.waitForMessage(QLatin1String(method)));
        QTest::qWait(50);
        ASSERT_TRUE(served.client) << "it is to wait for the server";
        EXPECT_EQ(served.client->status(), served.statuses.back());
        EXPECT_FALSE(served.server.running().empty());
        served.client->deleteLater();
        QCoreApplication::sendPostedEvents(served.client, QEvent::DeferredDelete);
        EXPECT_FALSE(served.client);
        EXPECT_TRUE(served.serverIsGone());
    }
}

TEST(Destruction, SaysExitOnceToAServerThatAnswersShutdownTwice)
{
    const ServedClient served(R"({"on": {"shutdown": [{"respond": {"result": null}, "repeat": 3}]}})");
    ASSERT_TRUE(served.reaches(Ready));
    served.client->deleteLater();
    EXPECT_TRUE(isDeleted(served));
    EXPECT_EQ(served.server.received(QStringLiteral("exit")).size(), 1U);
}

TEST(Destruction, GoesOnWhenTheServerRefusesToShutDown)
{
    const ServedClient served(
        R"({"on": {"shutdown": [{"respond": {"error": {"code": -32603, "message": "no"}}}]}})");
    ASSERT_TRUE(served.reaches(Ready));
    served.client->deleteLater();
    EXPECT_TRUE(isDeleted(served));
    EXPECT_EQ(served.statuses.back(), Exited);
    EXPECT_EQ(served.server.received(QStringLiteral("exit")).size(), 1U);
}

TEST(Destruction, OfAClientThatHasLostItsSocketComesWithTheEndOfTheServer)
{
    ServedClient served(R"({"on": {"initialized": [{"close": "end"}, {"hang": true}]}})");
    ASSERT_TRUE(waitFor([&served] { return served.disconnections == 1; }));
    ASSERT_EQ(served.client->status(), Ready);
    EXPECT_FALSE(served.server.running().empty());
    served.client->deleteLater();
    QTest::qWait(100);
    EXPECT_TRUE(served.client) << "the server has its time to end";
    EXPECT_TRUE(isDeleted(served));
    EXPECT_EQ(served.statuses.back(), Exited);
}

TEST(Destruction, OfAClientThatIsNotReadyComesAtOnce)
{
    for (const char* scenario :
         {R"({"start": [{"hang": true}]})", R"({"on": {"initialize": [{"hang": true}]}})"}) {
        const ServedClient served(scenario);
        ASSERT_TRUE(served.server.waitForEvent(QStringLiteral("hanging")));
        served.client->deleteLater();
        QCoreApplication::sendPostedEvents(served.client, QEvent::DeferredDelete);
        EXPECT_FALSE(served.client);
        EXPECT_TRUE(served.serverIsGone());
    }
}

TEST(Destruction, OfItsParentEndsTheServerWithRequestsInFlight)
{
    const ServedClient served(R"({"on": {"textDocument/hover": []}})");
    ASSERT_TRUE(served.reaches(Ready));
    auto* const parent = new QObject;
    served.client->setParent(parent);
    for (int count = 0; count < 10; ++count)
        served.askForHover();
    ASSERT_TRUE(served.server.waitForMessage(QStringLiteral("textDocument/hover"), 10));
    served.askForHover(); // still in the client's hands
    delete parent;
    EXPECT_FALSE(served.client);
    EXPECT_TRUE(served.serverIsGone());
}

TEST(Destruction, InTheMidstOfAMessageThatIsArriving)
{
    const ServedClient served(R"({"steps": [{"expect": "initialized"},
        {"notify": "window/showMessage", "params": {"message": "{pad}"}, "pad": 20000000, "cut": 100000, "delay": 0.001}]})");
    ASSERT_TRUE(served.server.waitForEvent(QStringLiteral("sent"), 2));
    QTest::qWait(20);
    delete served.client;
    EXPECT_TRUE(served.serverIsGone());
    EXPECT_TRUE(served.shown.empty());
}

namespace {

/// A signal of the client's, whose handler deletes the client.
struct Signal
{
    const char* name;
    void (*connect)(TestClient& client, std::function<void()> handler);
};

template <auto signal>
void connectTo(TestClient& client, std::function<void()> handler)
{
    QObject::connect(&client, signal, handler);
}

template <LSPClientStatus wanted>
void connectToStatus(TestClient& client, std::function<void()> handler)
{
    QObject::connect(&client, &TestClient::statusChanged,
                     [handler = std::move(handler)](LSPClientStatus status) {
                         if (status == wanted)
                             handler();
                     });
}

const Signal signalsOfTheClient[] = {
    {"StatusConnected", connectToStatus<Connected>},
    {"StatusInitializing", connectToStatus<Initializing>},
    {"StatusReady", connectToStatus<Ready>},
    {"StatusShuttingDown", connectToStatus<ShuttingDown>},
    {"StatusExiting", connectToStatus<Exiting>},
    {"StatusExited", connectToStatus<Exited>},
    {"ClientReady", connectTo<&TestClient::clientReady>},
    {"LogMessage", connectTo<&TestClient::logMessage>},
    {"MessageReceived", connectTo<&TestClient::messageReceived>},
    {"PublishDiagnosticsNotification", connectTo<&TestClient::publishDiagnosticsNotification>},
    {"ResponseReceived", connectTo<&TestClient::responseReceived>},
    {"ServerCapabilitiesReceived", connectTo<&TestClient::serverCapabilitiesReceived>},
    {"ServerDisconnected", connectTo<&TestClient::serverDisconnected>},
    {"ShowMessage", connectTo<&TestClient::showMessage>},
};

std::ostream& operator<<(std::ostream& stream, const Signal& signal)
{
    return stream << signal.name;
}

class Handlers : public testing::TestWithParam<Signal>
{
protected:
    /// A server that gives the client cause for all of its signals; with more behind each that nobody takes.
    const QByteArray scenario = R"({"steps": [{"expect": "initialized"}, {"together": [
        {"notify": "window/logMessage", "params": {"type": 3, "message": "a"}},
        {"notify": "window/showMessage", "params": {"type": 3, "message": "b"}},
        {"notify": "textDocument/publishDiagnostics", "params": {"uri": "file:///a.py", "diagnostics": []}}]}]})";
};

} // namespace

TEST_P(Handlers, MayDeleteTheClient)
{
    const ServedClient served(scenario);
    GetParam().connect(*served.client, [&served] { delete served.client; });
    if (served.reaches(Ready))
        waitFor([&served] { return !served.client || !served.shown.empty(); });
    if (served.client)
        served.client->shutdown();
    EXPECT_TRUE(isDeleted(served));
}

TEST_P(Handlers, MayDeleteTheClientLater)
{
    const ServedClient served(scenario);
    GetParam().connect(*served.client, [&served] { served.client->deleteLater(); });
    if (served.reaches(Ready))
        waitFor([&served] { return !served.client || !served.shown.empty(); });
    if (served.client && served.client->status() == Ready)
        served.client->shutdown();
    EXPECT_TRUE(isDeleted(served));
}
INSTANTIATE_TEST_SUITE_P(OfTheClient, Handlers, testing::ValuesIn(signalsOfTheClient),
                         testing::PrintToStringParamName());

TEST(Destruction, ByTheHandlerOfAnAnswer)
{
    const ServedClient served(
        R"({"on": {"textDocument/hover": [{"respond": {"result": null}, "repeat": 3}]}})");
    ASSERT_TRUE(served.reaches(Ready));
    const LSPHoverMonitor* const monitor = served.askForHover();
    QObject::connect(monitor, &LSPHoverMonitor::responseReady, [&served] { delete served.client; });
    EXPECT_TRUE(isDeleted(served));
}

TEST(Destruction, ByTheHandlerOfAnAnswerInAnEventLoopOfItsOwn)
{
    const ServedClient served(
        R"({"on": {"textDocument/hover": [{"respond": {"result": null}, "repeat": 3}]}})");
    ASSERT_TRUE(served.reaches(Ready));
    const LSPHoverMonitor* const monitor = served.askForHover();
    QObject::connect(monitor, &LSPHoverMonitor::responseReady, [&served] {
        QTest::qWait(20);
        delete served.client;
        QTest::qWait(20);
    });
    EXPECT_TRUE(isDeleted(served));
}
