#include "servedclient.h"
#include "testpaths.h"

#include <QProcess>
#include <ostream>

using namespace Halvorin::LSP;
using enum LSPClientStatus;

namespace {

/// When the server does it. The steps of the manner stand in the place of MANNER.
struct Moment
{
    const char* name;
    const char* scenario;
    bool connected;          // when it happens
    LSPClientStatus reached; // the status in which the client is then
};

constexpr Moment moments[] = {
    {"AtItsStart", R"({"start": [MANNER]})", false, NotConnected},
    {"InPlaceOfItsAnswerToInitialize", R"({"on": {"initialize": [MANNER]}})", true, Initializing},
    {"AmidItsAnswerToInitialize",
     R"({"on": {"initialize": [{"respond": {"result": {"capabilities": {}}}, "first": 40}, MANNER]}})", true,
     Initializing},
    {"BehindInitialized", R"({"on": {"initialized": [MANNER]}})", true, Ready},
    {"DuringARequest", R"({"on": {"textDocument/hover": [MANNER]}})", true, Ready},
    {"AmidAnAnswer",
     R"({"on": {"textDocument/hover": [{"respond": {"result": null}, "first": 30}, MANNER]}})", true, Ready},
    {"OnShutdown", R"({"on": {"shutdown": [MANNER]}})", true, ShuttingDown},
    {"BehindShutdown", R"({"on": {"exit": [MANNER]}})", true, Exiting},
};

/// What the server does, with the entry of its log that says so.
struct Manner
{
    enum class Outcome
    {
        Ends,        // its process
        Disconnects, // and lives on
        Stays,       // and says nothing
    };

    const char* name;
    const char* steps;
    const char* logged;
    Outcome outcome;
};

constexpr Manner manners[] = {
    {"Exits", R"({"exit": 3})", "exit", Manner::Outcome::Ends},
    {"LeavesAChildBehind", R"({"spawn": true, "sockets": true}, {"exit": 0})", "exit", Manner::Outcome::Ends},
    {"IsKilled", R"({"kill": "SIGKILL"})", "kill", Manner::Outcome::Ends},
    {"Crashes", R"({"kill": "SIGSEGV"})", "kill", Manner::Outcome::Ends},
    {"ClosesItsSocket", R"({"close": "end"}, {"hang": true})", "hanging", Manner::Outcome::Disconnects},
    {"ResetsItsSocket", R"({"close": "reset"}, {"hang": true})", "hanging", Manner::Outcome::Disconnects},
    {"FallsSilent", R"({"ignore": ["SIGTERM", "SIGHUP", "SIGINT"]}, {"spawn": true}, {"hang": true})",
     "hanging", Manner::Outcome::Stays},
    {"IsStopped", R"({"spawn": true}, {"kill": "SIGSTOP"})", "kill", Manner::Outcome::Stays},
};

struct Ending
{
    Moment moment;
    Manner manner;
};

std::ostream& operator<<(std::ostream& stream, const Ending& ending)
{
    return stream << ending.manner.name << ending.moment.name;
}

class Endings : public testing::TestWithParam<Ending>
{
protected:
    const Moment moment = GetParam().moment;
    const Manner manner = GetParam().manner;

    QByteArray scenario() const { return QByteArray(moment.scenario).replace("MANNER", manner.steps); }

    /// The statuses up to that of the moment.
    ServedClient::Statuses passed() const
    {
        ServedClient::Statuses all;
        for (const LSPClientStatus status : {Connected, Initializing, Ready, ShuttingDown, Exiting}) {
            if (status <= moment.reached)
                all.push_back(status);
        }
        return all;
    }
};

/// All that can be: before it is connected a server has no socket to close or to hand on.
std::vector<Ending> endings()
{
    std::vector<Ending> all;
    for (const Moment& moment : moments) {
        for (const Manner& manner : manners) {
            const bool needsSocket = manner.outcome == Manner::Outcome::Disconnects ||
                                     QByteArray(manner.steps).contains("sockets");
            if (moment.connected || !needsSocket)
                all.push_back({moment, manner});
        }
    }
    return all;
}

} // namespace

TEST_P(Endings, LeaveADeadClientAndNoProcess)
{
    ServedClient served(scenario());
    const LSPHoverMonitor* const hover = served.askForHover(); // waits, and goes out when the client is ready
    if (moment.reached > Ready) {
        ASSERT_TRUE(served.reaches(Ready));
        served.client->shutdown();
    }
    ASSERT_TRUE(served.server.waitForEvent(QLatin1String(manner.logged)));

    ServedClient::Statuses statuses = passed();
    const bool endsWithItsSocket =
        manner.outcome == Manner::Outcome::Disconnects && moment.reached >= Ready; // about 2 s later
    if (manner.outcome == Manner::Outcome::Ends || endsWithItsSocket) {
        EXPECT_TRUE(served.reaches(Exited));
        statuses.push_back(Exited);
        EXPECT_TRUE(served.serverIsGone());
    } else {
        EXPECT_TRUE(served.reaches(moment.reached));
        EXPECT_FALSE(served.server.running().empty());
    }
    const bool disconnects = manner.outcome != Manner::Outcome::Stays && moment.connected;
    EXPECT_TRUE(waitFor([&] { return served.disconnections == (disconnects ? 1 : 0); }));
    EXPECT_EQ(served.statuses, statuses);
    EXPECT_TRUE(waitFor([&] { return hover->response().has_value() == (moment.reached > Ready); }));

    // What is asked of it now waits or is dropped, and blocks nothing.
    const LSPHoverMonitor* const late = served.askForHover();
    served.client->setting(QStringLiteral("a"), 1);
    QTest::qWait(20);
    EXPECT_FALSE(late->response());
    EXPECT_EQ(served.statuses, statuses);
}
INSTANTIATE_TEST_SUITE_P(OfAServer, Endings, testing::ValuesIn(endings()), testing::PrintToStringParamName());

TEST(Ending, OfAServerIsTheLastStatusAlsoWhenItsLastWordsAreReadLater)
{
    // Whether the process or the socket is heard of first is chance.
    for (const char* scenario :
         {R"({"steps": [{"kill": "SIGKILL"}]})",
          R"({"on": {"initialize": [{"respond": {"result": {"capabilities": {}}}}, {"exit": 0}]}})",
          R"({"on": {"shutdown": [{"respond": {"result": null}}, {"exit": 0}]}})"}) {
        for (int round = 0; round < 5; ++round) {
            const ServedClient served(scenario);
            QObject::connect(served.client, &TestClient::clientReady, served.client, &TestClient::shutdown);
            EXPECT_TRUE(served.reaches(Exited));
            QTest::qWait(30);
            EXPECT_EQ(served.statuses.back(), Exited) << scenario;
            EXPECT_TRUE(served.serverIsGone());
        }
    }
}

TEST(Ending, MayComeWhileAHandlerRunsAnEventLoop)
{
    const ServedClient served(R"({"steps": [{"expect": "initialized"}, {"together": [
        {"notify": "window/logMessage", "params": {"type": 3, "message": "a"}},
        {"notify": "window/showMessage", "params": {"type": 3, "message": "b"}}]}, {"exit": 0}]})");
    QObject::connect(served.client, &TestClient::logMessage, [&served] {
        EXPECT_TRUE(served.reaches(Exited)); // as a message box would wait
        QTest::qWait(50);
    });
    EXPECT_TRUE(served.reaches(Exited));
    EXPECT_TRUE(served.client);
}

TEST(Ending, DoesNotComeToAServerThatConnectsAnew)
{
    const ServedClient served(
        R"({"on": {"initialized": [{"close": "end"}, {"sleep": 0.1}, {"open": true}, {"sleep": 0.3},
        {"send": {"id": 1, "result": {"capabilities": {}}}, "over": 1}, {"hang": true}]}})");
    ASSERT_TRUE(served.server.waitForMessage(QStringLiteral("initialized"), 2));
    QTest::qWait(2500);
    EXPECT_EQ(served.client->status(), Ready);
    EXPECT_FALSE(served.server.running().empty());
    EXPECT_EQ(served.statuses,
              (ServedClient::Statuses{Connected, Initializing, Ready, Connected, Initializing, Ready}));
}

TEST(Ending, OfTheApplicationByForceTakesTheServerWithIt)
{
    const ScriptedServer server(
        R"({"on": {"initialized": [{"ignore": ["SIGTERM", "SIGHUP"]}, {"hang": true}]}})");
    QProcess application;
    application.start(QStringLiteral(CLIENT_APPLICATION), {server.program()});
    ASSERT_TRUE(server.waitForEvent(QStringLiteral("hanging")));
    ASSERT_EQ(server.running().size(), 1U);
    application.kill();
    EXPECT_TRUE(application.waitForFinished());
    EXPECT_TRUE(waitFor([&server] { return server.running().empty(); }));
}
