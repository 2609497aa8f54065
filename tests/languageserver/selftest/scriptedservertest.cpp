#include "languageserver/scriptedserver.h"

#include "languageserver/pyright.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QProcess>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtTest/qtestsystem.h>

#include <csignal>
#include <memory>
#include <stdexcept>

namespace {

struct Application : testing::Environment
{
    void SetUp() override { m_application = std::make_unique<QCoreApplication>(m_count, m_arguments); }
    void TearDown() override { m_application.reset(); }

private:
    int m_count = 1;
    char m_name[5] = "test";
    char* m_arguments[2] = {m_name, nullptr};
    std::unique_ptr<QCoreApplication> m_application;
};

const auto* const application = testing::AddGlobalTestEnvironment(new Application);

/// The client's end, as plain as can be: it listens, starts the server and takes what it writes.
class Client
{
public:
    explicit Client(const ScriptedServer& server)
    {
        m_listener.listen(QHostAddress::LocalHost);
        m_process.start(server.program(), {QStringLiteral("--socket=%1").arg(m_listener.serverPort())});
    }

    bool accept()
    {
        if (!m_listener.waitForNewConnection(60'000))
            return false;
        m_socket = m_listener.nextPendingConnection();
        return true;
    }

    void send(const QByteArray& message)
    {
        m_socket->write("Content-Length: " + QByteArray::number(message.size()) + "\r\n\r\n" + message);
    }

    bool receives(const QByteArray& text)
    {
        return QTest::qWaitFor([&] { return (m_text += m_socket->readAll()).contains(text); }, 60'000);
    }

    QProcess& process() { return m_process; }

private:
    QTcpServer m_listener;
    QProcess m_process;
    QTcpSocket* m_socket = nullptr;
    QByteArray m_text;
};

QJsonObject jsonObject(const QByteArray& text)
{
    return QJsonDocument::fromJson(text).object();
}

} // namespace

TEST(ScriptedServer, AnswersAClientAndTellsWhatItReceived)
{
    const ScriptedServer server;
    Client client(server);
    ASSERT_TRUE(client.accept());
    client.send(R"({"id":0,"method":"initialize"})");
    ASSERT_TRUE(client.receives(R"("id":0,"result":{"capabilities")"));
    client.send(R"({"id":7,"result":null})");
    client.send(R"({"id":1,"method":"shutdown"})");
    client.send(R"({"method":"exit"})");
    ASSERT_TRUE(server.waitForEvent(QStringLiteral("exit")));
    ASSERT_TRUE(client.process().waitForFinished());
    EXPECT_EQ(client.process().exitCode(), 0);
    EXPECT_EQ(server.receivedMethods(), (QStringList{QStringLiteral("initialize"), QString(),
                                                     QStringLiteral("shutdown"), QStringLiteral("exit")}));
    EXPECT_EQ(server.received().at(1), jsonObject(R"({"id":7,"result":null})"));
    EXPECT_EQ(server.received(QStringLiteral("exit")).size(), 1U);
    EXPECT_EQ(server.events(QStringLiteral("received")).at(0)[QStringLiteral("header")].toString(),
              QStringLiteral("Content-Length: 30\r\n\r\n"));
}

TEST(ScriptedServer, PlaysItsScenarioAndWaitsForTheTest)
{
    const ScriptedServer server(R"({"steps": [{"await": "go"}, {"raw": "gone"}]})");
    Client client(server);
    ASSERT_TRUE(client.accept());
    client.send(R"({"method":"initialized"})");
    ASSERT_TRUE(server.waitForMessage(QStringLiteral("initialized")));
    EXPECT_TRUE(server.events(QStringLiteral("sent")).empty());
    server.letGoOn(QStringLiteral("go"));
    EXPECT_TRUE(client.receives("gone"));
}

TEST(ScriptedServer, KnowsAStepWhoseOptionsComeFirst)
{
    const ScriptedServer server(R"({"steps": [{"raw": "gone", "cut": 1}]})"); // the object sorts its keys
    Client client(server);
    ASSERT_TRUE(client.accept());
    EXPECT_TRUE(client.receives("gone"));
}

TEST(ScriptedServer, RunsBesideOthersWithAnotherScenario)
{
    const ScriptedServer one(R"({"steps": [{"raw": "one"}]})");
    const ScriptedServer two(jsonObject(R"({"steps": [{"raw": "two"}]})"));
    Client clientOfTwo(two);
    Client clientOfOne(one);
    ASSERT_TRUE(clientOfTwo.accept() && clientOfOne.accept());
    EXPECT_TRUE(clientOfTwo.receives("two"));
    EXPECT_TRUE(clientOfOne.receives("one"));
}

TEST(ScriptedServer, TellsWhichOfItsProcessesStillRunAndEndsThem)
{
    qint64 child = 0;
    {
        const ScriptedServer server(R"({"start": [{"spawn": true}, {"kill": "SIGKILL"}]})");
        EXPECT_TRUE(server.running().empty());
        Client client(server);
        ASSERT_TRUE(client.process().waitForFinished());
        EXPECT_EQ(client.process().exitStatus(), QProcess::CrashExit);
        ASSERT_EQ(server.running().size(), 1U);
        child = server.running().front();
        EXPECT_NE(child, server.log().at(0)[QStringLiteral("pid")].toDouble());
    }
    const auto hasEnded = [&] {
        QFile state(QStringLiteral("/proc/%1/stat").arg(child));
        return !state.open(QIODevice::ReadOnly) || state.readAll().contains(") Z ");
    };
    EXPECT_TRUE(QTest::qWaitFor(hasEnded, 60'000));
}

TEST(ScriptedServer, RefusesATextThatIsNoScenario)
{
    EXPECT_THROW(ScriptedServer("{"), std::invalid_argument);
    EXPECT_THROW(ScriptedServer("[]"), std::invalid_argument);
}

TEST(Pyright, ThatIsNotInstalledSaysWhatToRun)
{
    try {
        installedProgram(QStringLiteral("/nowhere/server"));
        FAIL() << "it was found";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "/nowhere/server is not installed: run scripts/install-language-server");
    }
}
