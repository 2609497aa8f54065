#include "servedclient.h"

#include <QSignalSpy>

using namespace Halvorin::LSP;
using enum LSPClientStatus;
using Texts = std::vector<std::string>;

TEST(Conversation, HearsAMonitorTwiceThatIsAnsweredTwice)
{
    const ServedClient served(R"({"on": {"textDocument/hover": [
        {"together": [{"respond": {"result": {"contents": "one"}}}, {"respond": {"result": {"contents": "two"}}}]}]}})");
    ASSERT_TRUE(served.reaches(Ready));
    LSPHoverMonitor* const monitor = served.askForHover();
    QSignalSpy answers(monitor, &LSPHoverMonitor::responseReady);
    ASSERT_TRUE(waitFor([&answers] { return answers.size() == 2; }));
    EXPECT_EQ(std::get<QString>(std::get<LSPHover>(monitor->result()).contents()), QStringLiteral("two"));
}

TEST(Conversation, TakesAnswersInAnyOrder)
{
    const ServedClient served(R"({"steps": [
        {"expect": "textDocument/hover", "as": "first"}, {"expect": "textDocument/hover"},
        {"respond": {"result": {"contents": "of the second"}}},
        {"respond": {"result": {"contents": "of the first"}}, "to": "first"}]})");
    const LSPHoverMonitor* const first = served.askForHover();
    const LSPHoverMonitor* const second = served.askForHover();
    ASSERT_TRUE(waitFor([first] { return first->response().has_value(); }));
    EXPECT_EQ(std::get<QString>(std::get<LSPHover>(first->result()).contents()),
              QStringLiteral("of the first"));
    EXPECT_EQ(std::get<QString>(std::get<LSPHover>(second->result()).contents()),
              QStringLiteral("of the second"));
}

TEST(Conversation, DropsAnAnswerThatNobodyWaitsForAnyMore)
{
    const ServedClient served(
        R"({"steps": [{"expect": "textDocument/hover", "as": "first"}, {"await": "deleted"},
        {"respond": {"result": null}, "to": "first"}]})");
    ASSERT_TRUE(served.reaches(Ready));
    QSignalSpy responses(served.client, &TestClient::responseReceived);
    delete served.askForHover();
    ASSERT_TRUE(served.server.waitForMessage(QStringLiteral("textDocument/hover")));
    served.server.letGoOn(QStringLiteral("deleted"));
    ASSERT_TRUE(waitFor([&responses] { return !responses.isEmpty(); }));
    EXPECT_EQ(served.hoverText(), usualHover);
}

TEST(Conversation, NeverTakesAnAnswerWithAnotherIdForItsOwn)
{
    const ServedClient served(R"({"on": {"textDocument/hover": [
        {"respond": {"result": "wrong", "id": null}}, {"respond": {"result": "wrong", "id": "1"}},
        {"respond": {"result": "wrong", "id": 4294967297}}, {"respond": {"result": "wrong", "id": -1}},
        {"respond": {"result": "wrong", "id": [1]}}, {"respond": {"result": null}}]}})");
    ASSERT_TRUE(served.reaches(Ready));
    LSPHoverMonitor* const monitor = served.askForHover();
    EXPECT_EQ(monitor->requestId(), 1);
    QSignalSpy answers(monitor, &LSPHoverMonitor::responseReady);
    ASSERT_TRUE(waitFor([&answers] { return !answers.isEmpty(); }));
    EXPECT_EQ(answers.size(), 1);
    EXPECT_TRUE(std::holds_alternative<Nothing>(monitor->result()));
}

TEST(Conversation, StopsAtInitializingWhenTheServerRefuses)
{
    ServedClient served(
        R"({"on": {"initialize": [{"respond": {"error": {"code": -32002, "message": "not today"}}}]}})");
    const LSPHoverMonitor* const waiting = served.askForHover();
    ASSERT_TRUE(waitFor([&served] { return !served.log.linesOf("error: ").empty(); }));
    EXPECT_EQ(served.log.linesOf("error: "), Texts{"error: lspclient: not today"});
    EXPECT_EQ(served.client->status(), Initializing);
    QTest::qWait(50);
    EXPECT_FALSE(waiting->response());
    EXPECT_EQ(served.server.receivedMethods(), QStringList{QStringLiteral("initialize")});

    served.client->deleteLater(); // it is not ready: at once
    QCoreApplication::sendPostedEvents(served.client, QEvent::DeferredDelete);
    EXPECT_FALSE(served.client);
}

TEST(Conversation, GoesOnBesideASecondConnectionThatStaysUnheard)
{
    const ServedClient served(R"({"steps": [{"expect": "initialized"}, {"open": true},
        {"notify": "window/showMessage", "params": {"type": 1, "message": "from a stranger"}, "over": 1},
        {"notify": "window/showMessage", "params": {"type": 1, "message": "from the server"}}]})");
    ASSERT_TRUE(waitFor([&served] { return !served.shown.empty(); }));
    ASSERT_TRUE(waitFor([&served] { return !served.log.linesOf("warning: ").empty(); }));
    EXPECT_EQ(served.hoverText(), usualHover);
    EXPECT_EQ(served.shown, Texts{"from the server"});
    EXPECT_EQ(served.log.linesOf("warning: "),
              Texts{"warning: langserv: Multiple incoming connections unsupported"});
    for (const QJsonObject& entry : served.server.events(QStringLiteral("received")))
        EXPECT_EQ(entry.value(QLatin1String("connection")), QJsonValue(0));
}

TEST(Conversation, LetsAServerTalkOnItsStandardStreams)
{
    const ServedClient served(R"({"start": [{"print": "chatter\n", "repeat": 500000}],
        "steps": [{"print": "complaint\n", "stream": "stderr", "repeat": 500000}]})");
    EXPECT_EQ(served.hoverText(), usualHover);
}

TEST(Conversation, ReachesTheServerWithWhatWasSaidBeforeItWasThere)
{
    ServedClient served(R"({"start": [{"await": "go"}]})");
    const QUrl document(QStringLiteral("file:///a.py"));
    served.client->setting(QStringLiteral("python.pythonPath"), QStringLiteral("/p"));
    served.client->didOpen(document, LSPLanguageId::Python, 1,
                           QString::fromUtf8("\xC3\xA4 = '\xF0\x9F\x90\x8D'\n"));
    served.server.letGoOn(QStringLiteral("go"));
    EXPECT_EQ(served.hoverText(), usualHover);
    EXPECT_EQ(served.server.receivedMethods(),
              (QStringList{QStringLiteral("initialize"), QStringLiteral("initialized"),
                           QStringLiteral("workspace/didChangeConfiguration"),
                           QStringLiteral("textDocument/didOpen"), QStringLiteral("textDocument/hover")}));
    for (const QJsonObject& entry : served.server.events(QStringLiteral("received"))) {
        const QByteArray body = entry.value(QLatin1String("body")).toString().toUtf8();
        EXPECT_EQ(entry.value(QLatin1String("header")).toString(),
                  QStringLiteral("Content-Length: %1\r\n\r\n").arg(body.size()));
    }
}

TEST(Conversation, GoesOnWithTheSameServerWhenASettingChanges)
{
    const ServedClient served;
    ASSERT_TRUE(served.reaches(LSPClientStatus::Ready));
    served.client->setting(QStringLiteral("python.pythonPath"), QStringLiteral("/other"));
    ASSERT_TRUE(served.server.waitForMessage(QStringLiteral("workspace/didChangeConfiguration")));
    EXPECT_EQ(served.hoverText(), usualHover);
    EXPECT_EQ(served.server.events(QStringLiteral("started")).size(), 1U);
    EXPECT_EQ(served.server.received(QStringLiteral("workspace/didChangeConfiguration")).size(), 1U);
}
