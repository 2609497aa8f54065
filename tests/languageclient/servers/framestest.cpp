#include "servedclient.h"

#include <QTimer>
#include <ostream>

using namespace Halvorin::LSP;
using enum LSPClientStatus;
using Texts = std::vector<std::string>;

namespace {

/// What a server may write that a client is to get over: it still understands what comes next.
struct Oddity
{
    const char* name;
    QByteArray steps; // once the client is ready; the "last" message follows
    Texts shown;
    Texts warnings;
};

std::ostream& operator<<(std::ostream& stream, const Oddity& oddity)
{
    return stream << oddity.name;
}

QByteArray show(const QByteArray& text, const QByteArray& options = "")
{
    return R"({"notify": "window/showMessage", "params": {"type": 3, "message": ")" + text + "\"}" + options +
           "}";
}

QByteArray withHeader(const QByteArray& header, const QByteArray& body)
{
    return R"({"body": ")" + body + R"(", "header": ")" + header + "\"}";
}

const Oddity oddities[] = {
    {"FramesCutAtEveryByte", show("whole", R"(, "cut": 1, "delay": 0.0005)"), {"whole"}, {}},
    {"FramesCutAcrossTheirBorder",
     R"({"together": [)" + show("one") + "," + show("two") + R"(], "cut": 100, "delay": 0.002})",
     {"one", "two"},
     {}},
    {"AContentTypeBeforeTheLength",
     show(
         "typed",
         R"(, "header": "Content-Type: application/vscode-jsonrpc; charset=utf-8\r\nContent-Length: {length}\r\n\r\n")"),
     {"typed"},
     {}},
    {"AContentTypeBehindTheLength",
     show("typed", R"(, "header": "Content-Length: {length}\r\nContent-Type: nonsense\r\n\r\n")"),
     {"typed"},
     {}},
    {"AHeaderOfAnUnknownName",
     show("traced", R"(, "header": "X-Trace: 7\r\nContent-Length: {length}\r\n\r\n")"),
     {"traced"},
     {"warning: langserv: Unknown header type: X-Trace: 7\r\n"}},
    {"TwoLengthsTheLastOneRight",
     show("second", R"(, "header": "Content-Length: 5\r\nContent-Length: {length}\r\n\r\n")"),
     {"second"},
     {}},
    {"ANegativeLength", withHeader("Content-Length: -2\\r\\n\\r\\n", ""), {}, {}},
    {"ALengthThatIsNoNumber", withHeader("Content-Length: many\\r\\n\\r\\n", ""), {}, {}},
    {"ALengthBeyondAllNumbers", withHeader("Content-Length: 99999999999999999999\\r\\n\\r\\n", ""), {}, {}},
    {"ALengthOfZero", withHeader("Content-Length: 0\\r\\n\\r\\n", ""), {}, {}},
    {"ALengthThatIsTooShort",
     withHeader("Content-Length: 3\\r\\n\\r\\n", "{}\\nrest\\n"),
     {},
     {"warning: langserv: Unknown header type: rest\n"}},
    {"ABodyThatIsNoJson", R"({"body": "{\"method\": "}, {"body": "\u0000\u0001"})", {}, {}},
    {"ABodyThatIsNoObject",
     R"({"send": []}, {"send": "text"}, {"send": 5}, {"send": null}, {"send": true})",
     {},
     {}},
    {"ABodyOfManyLevels", R"({"body": ")" + QByteArray(100'000, '[') + "\"}", {}, {}},
    {"MembersOfWrongTypes",
     R"({"send": {"method": 5, "id": []}}, {"send": {"method": "window/showMessage", "params": 7}},
        {"send": {"method": "workspace/configuration", "id": {}}},
        {"send": {"method": "textDocument/publishDiagnostics", "params": {"diagnostics": 1}}},
        {"send": {"id": {}, "result": [], "error": 3}})",
     {""},
     {}},
    {"AnswersThatNobodyWaitsFor",
     R"({"send": {"id": 99, "result": {}}}, {"send": {"id": null, "error": {"code": -32700, "message": "what"}}},
        {"send": {"id": "0", "result": {}}}, {"send": {"id": 0, "result": {"capabilities": {}}}},
        {"send": {"id": -1, "result": null}}, {"send": {"id": 1.5, "result": null}}, {"send": {"id": 1e300}})",
     {},
     {}},
    {"RequestsThatAreNotForIt",
     R"({"request": "client/registerCapability", "id": 1}, {"request": "window/showDocument", "id": "two"},
        {"request": "window/workDoneProgress/create", "id": 3}, {"request": "workspace/applyEdit", "id": 4})",
     {},
     {}},
};

class Oddities : public testing::TestWithParam<Oddity>
{};

QByteArray whenReady(const QByteArray& steps)
{
    return R"({"steps": [{"expect": "initialized"}, )" + steps + "]}";
}

} // namespace

TEST_P(Oddities, AreGotOver)
{
    const Oddity& oddity = GetParam();
    const ServedClient served(whenReady(oddity.steps + "," + show("last")));
    Texts shown = oddity.shown;
    shown.push_back("last");
    EXPECT_TRUE(
        waitFor([&] { return served.shown.size() >= shown.size() && served.shown.back() == "last"; }));
    EXPECT_EQ(served.shown, shown);
    EXPECT_EQ(served.log.linesOf("warning: "), oddity.warnings);
    EXPECT_EQ(served.log.linesOf("error: "), Texts{});
    EXPECT_EQ(served.hoverText(), usualHover);
    EXPECT_EQ(served.statuses, (ServedClient::Statuses{Connected, Initializing, Ready}));
    QStringList methods = served.server.receivedMethods();
    methods.removeAll(QString()); // answers
    EXPECT_EQ(methods, (QStringList{QStringLiteral("initialize"), QStringLiteral("initialized"),
                                    QStringLiteral("textDocument/hover")}));
    EXPECT_TRUE(served.server.events(QStringLiteral("malformed")).empty());
}
INSTANTIATE_TEST_SUITE_P(OfAServer, Oddities, testing::ValuesIn(oddities), testing::PrintToStringParamName());

TEST(Frames, OfTheHandshakeMayComeByteByByte)
{
    const ServedClient served(R"({"on": {"initialize": [
        {"respond": {"result": {"capabilities": {"hoverProvider": true}}}, "cut": 1, "delay": 0.0005}]}})");
    ASSERT_TRUE(served.reaches(Ready));
    EXPECT_TRUE(served.client->serverCapabilities()->supports(
        LSPServerCapabilities::ServerCapability::HoverProvider));
    EXPECT_EQ(served.hoverText(), usualHover);
}

TEST(Frames, OfARequestOfTheServersAreAnsweredOnceWhereverTheyAreCut)
{
    for (const int cut : {1, 7, 64}) {
        ServedClient served(whenReady(
            R"({"request": "workspace/configuration", "id": "c", "params": {"items": [{"section": "a"}]}, "cut": )" +
            QByteArray::number(cut) + "}"));
        served.client->setting(QStringLiteral("a"), 5);
        ASSERT_TRUE(served.reaches(Ready));
        const auto answered = [&served] { return served.server.receivedMethods().contains(QString()); };
        ASSERT_TRUE(waitFor(answered));
        EXPECT_EQ(served.hoverText(), usualHover);
        std::vector<QJsonObject> answers = served.server.received();
        std::erase_if(answers,
                      [](const QJsonObject& message) { return message.contains(QLatin1String("method")); });
        ASSERT_EQ(answers.size(), 1U);
        EXPECT_EQ(answers.front().value(QLatin1String("id")), QLatin1String("c"));
        EXPECT_EQ(answers.front().value(QLatin1String("result")), QJsonArray{5});
    }
}

TEST(Frames, OfThousandsInOneSegmentAreAllTaken)
{
    const ServedClient served(whenReady(show("{n}", R"(, "repeat": 5000)")));
    ASSERT_TRUE(waitFor([&] { return served.shown.size() == 5000; }));
    for (std::size_t number = 0; number < served.shown.size(); ++number)
        ASSERT_EQ(served.shown[number], std::to_string(number));
    EXPECT_EQ(served.hoverText(), usualHover);
}

TEST(Frames, OfFiftyMegabytesLeaveTheEventLoopRunning)
{
    const ServedClient served(whenReady(
        R"({"sleep": 0.1},)" + show("{pad}", R"(, "pad": 50000000, "cut": 1000000, "delay": 0.002)")));
    ASSERT_TRUE(served.server.waitForEvent(QStringLiteral("sent"), 2)); // written before it is sent
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&ticks] { ++ticks; });
    timer.start(1);
    ASSERT_TRUE(waitFor([&] { return !served.shown.empty(); }));
    EXPECT_EQ(served.shown.front().size(), 50'000'000U);
    EXPECT_GE(ticks, 10);
    EXPECT_EQ(served.hoverText(), usualHover);
}

TEST(Frames, OfFiftyMegabytesReachTheServer)
{
    const ServedClient served;
    served.client->didOpen(QUrl(QStringLiteral("file:///a.py")), LSPLanguageId::Python, 1,
                           QString(50'000'000, QLatin1Char('x')));
    EXPECT_EQ(served.hoverText(), usualHover);
    ASSERT_TRUE(served.server.waitForMessage(QStringLiteral("textDocument/didOpen")));
}

namespace {

/// A header with which the server's words and the client's understanding part for good.
struct WrongHeader
{
    const char* name;
    const char* lines;
};

std::ostream& operator<<(std::ostream& stream, const WrongHeader& header)
{
    return stream << header.name;
}

constexpr WrongHeader wrongHeaders[] = {
    {"LengthTooLong", "Content-Length: 1000000\\r\\n\\r\\n"},
    {"LengthThatNothingHas", "Content-Length: 2147483647\\r\\n\\r\\n"},
    {"NoLength", "Content-Type: x\\r\\n\\r\\n"},
};

class LostStep : public testing::TestWithParam<WrongHeader>
{};

} // namespace

TEST_P(LostStep, BlocksNothingAndGoesWithTheClient)
{
    const ServedClient served(
        whenReady(R"({"body": "{}", "header": ")" + QByteArray(GetParam().lines) + "\"}," + show("lost")));
    ASSERT_TRUE(served.reaches(Ready));
    const LSPHoverMonitor* monitor = served.askForHover();
    ASSERT_TRUE(served.server.waitForMessage(QStringLiteral("textDocument/hover")));
    ASSERT_TRUE(
        served.server.waitForEvent(QStringLiteral("sent"), 4)); // the answers, and what stands between
    QTest::qWait(50);
    EXPECT_FALSE(monitor->response());
    EXPECT_TRUE(served.shown.empty());
    EXPECT_EQ(served.client->status(), Ready);
}
INSTANTIATE_TEST_SUITE_P(OfAServer, LostStep, testing::ValuesIn(wrongHeaders),
                         testing::PrintToStringParamName());
