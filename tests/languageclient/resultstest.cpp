#include "languageclient/peer.h"
#include "languageclient/testclient.h"

#include <QPointer>
#include <QSignalSpy>

using namespace Halvorin::LSP;

namespace {

/// A monitor whose answer is the JSON text, for instance {"result":null}.
template <class Monitor>
class Answered
{
public:
    explicit Answered(const char* answer) : m_monitor(0, &m_client)
    {
        QJsonObject message = json(answer);
        message.insert(QStringLiteral("id"), 0);
        Q_EMIT m_client.responseReceived(LSPResponseMessage(message));
    }

    typename Monitor::Result result() const { return m_monitor.result(); }

    /// What is thrown instead of a result.
    std::string failure() const
    {
        try {
            m_monitor.result();
        } catch (const LSPRequestException& error) {
            return std::string("request: ") + error.what();
        } catch (const std::runtime_error& error) {
            return error.what();
        }
        return "nothing";
    }

private:
    TestClient m_client;
    Monitor m_monitor;
};

template <class Monitor>
std::string failureOf(const char* answer)
{
    return Answered<Monitor>(answer).failure();
}

/// Which of the alternatives the answer becomes, counted from 0.
template <class Monitor>
std::size_t alternativeOf(const char* answer)
{
    return Answered<Monitor>(answer).result().index();
}

constexpr auto range = R"({"start":{"line":0,"character":0},"end":{"line":0,"character":1}})";

std::string withRange(std::string text)
{
    for (std::size_t at = text.find("RANGE"); at != std::string::npos; at = text.find("RANGE"))
        text.replace(at, 5, range);
    return text;
}

} // namespace

TEST(RequestResult, IsTheServersErrorWithItsMessage)
{
    const char* error = R"({"error":{"code":-32601,"message":"unbekannt: \u00e4"}})";
    EXPECT_EQ(failureOf<LSPInitializeMonitor>(error), "request: unbekannt: \xC3\xA4");
    EXPECT_EQ(failureOf<LSPShutdownMonitor>(error), "request: unbekannt: \xC3\xA4");
    EXPECT_EQ(failureOf<LSPHoverMonitor>(error), "request: unbekannt: \xC3\xA4");
}

TEST(RequestResult, IsANullResponseWhereAResultIsRequired)
{
    for (const char* answer : {"{}", R"({"result":null})"}) {
        EXPECT_EQ(failureOf<LSPInitializeMonitor>(answer), "null response");
        EXPECT_EQ(failureOf<LSPCompletionItemResolveMonitor>(answer), "null response");
    }
}

TEST(RequestResult, IsNothingWhereNothingIsAnAnswer)
{
    for (const char* answer : {"{}", R"({"result":null})"}) {
        EXPECT_EQ(alternativeOf<LSPCompletionMonitor>(answer), 0U);
        EXPECT_EQ(alternativeOf<LSPDocumentSymbolMonitor>(answer), 0U);
        EXPECT_EQ(alternativeOf<LSPHoverMonitor>(answer), 0U);
        EXPECT_EQ(alternativeOf<LSPSemanticTokensMonitor>(answer), 0U);
        EXPECT_EQ(alternativeOf<LSPSignatureHelpMonitor>(answer), 0U);
        EXPECT_EQ(failureOf<LSPShutdownMonitor>(answer), "nothing");
    }
}

TEST(RequestResult, IsAnInvalidConversionForAnotherType)
{
    for (const char* answer : {R"({"result":5})", R"({"result":"text"})", R"({"result":true})",
                               R"({"result":{}})", R"({"result":[5]})"}) {
        EXPECT_EQ(failureOf<LSPInitializeMonitor>(answer), "invalid conversion");
        EXPECT_EQ(failureOf<LSPCompletionMonitor>(answer), "invalid conversion");
        EXPECT_EQ(failureOf<LSPCompletionItemResolveMonitor>(answer), "invalid conversion");
        EXPECT_EQ(failureOf<LSPDocumentSymbolMonitor>(answer), "invalid conversion");
        EXPECT_EQ(failureOf<LSPHoverMonitor>(answer), "invalid conversion");
        EXPECT_EQ(failureOf<LSPSemanticTokensMonitor>(answer), "invalid conversion");
        EXPECT_EQ(failureOf<LSPSignatureHelpMonitor>(answer), "invalid conversion");
        EXPECT_EQ(failureOf<LSPShutdownMonitor>(answer), "invalid conversion");
    }
}

TEST(RequestResult, IsTheListOrTheItemsOfACompletion)
{
    EXPECT_EQ(
        alternativeOf<LSPCompletionMonitor>(R"({"result":{"isIncomplete":false,"items":[{"label":"a"}]}})"),
        1U);
    EXPECT_EQ(alternativeOf<LSPCompletionMonitor>(R"({"result":[{"label":"a"},{"label":"b"}]})"), 2U);
    EXPECT_EQ(alternativeOf<LSPCompletionMonitor>(R"({"result":[]})"), 2U);
}

TEST(RequestResult, IsInvalidWhenOneElementOfTheItemsFails)
{
    EXPECT_EQ(failureOf<LSPCompletionMonitor>(R"({"result":[{"label":"a"},{"detail":"b"}]})"),
              "invalid conversion");
    EXPECT_EQ(failureOf<LSPCompletionMonitor>(R"({"result":[{"label":"a"},7]})"), "invalid conversion");
}

TEST(RequestResult, IsOneOrTheOtherKindOfSymbol)
{
    EXPECT_EQ(
        alternativeOf<LSPDocumentSymbolMonitor>(
            withRange(R"({"result":[{"name":"a","kind":5,"location":{"uri":"file:///a","range":RANGE}}]})")
                .c_str()),
        1U);
    EXPECT_EQ(
        alternativeOf<LSPDocumentSymbolMonitor>(
            withRange(R"({"result":[{"name":"a","kind":5,"range":RANGE,"selectionRange":RANGE}]})").c_str()),
        2U);
}

TEST(RequestResult, IsTheRecordOfTheOthers)
{
    EXPECT_EQ(alternativeOf<LSPHoverMonitor>(R"({"result":{"contents":"text"}})"), 1U);
    EXPECT_EQ(alternativeOf<LSPSemanticTokensMonitor>(R"({"result":{"data":[1,2]}})"), 1U);
    EXPECT_EQ(alternativeOf<LSPSignatureHelpMonitor>(R"({"result":{"signatures":[]}})"), 1U);
}

TEST(RequestResult, IsANullResponseBeforeThereIsAnAnswer)
{
    TestClient client;
    const LSPHoverMonitor monitor(0, &client);
    EXPECT_THROW(monitor.result(), std::runtime_error);
}

TEST(RequestMonitor, TakesTheSecondOfTwoAnswersToo)
{
    TestClient client;
    LSPHoverMonitor monitor(3, &client);
    QSignalSpy ready(&monitor, &LSPHoverMonitor::responseReady);
    Q_EMIT client.responseReceived(LSPResponseMessage(json(R"({"id":3,"result":null})")));
    Q_EMIT client.responseReceived(LSPResponseMessage(json(R"({"id":3,"result":{"contents":"x"}})")));
    EXPECT_EQ(ready.size(), 2);
    EXPECT_EQ(monitor.result().index(), 1U);
}

TEST(RequestMonitor, HearsItsOwnIdOnly)
{
    TestClient client;
    LSPHoverMonitor monitor(3, &client);
    QSignalSpy ready(&monitor, &LSPHoverMonitor::responseReady);
    for (const char* answer :
         {R"({"id":4})", R"({"id":"3"})", R"({"id":null})", R"({"id":3.5})", R"({"id":[3]})"})
        Q_EMIT client.responseReceived(LSPResponseMessage(json(answer)));
    EXPECT_TRUE(ready.isEmpty());
    EXPECT_FALSE(monitor.response());
}

TEST(RequestMonitor, BelongsToItsClient)
{
    auto client = std::make_unique<TestClient>();
    const QPointer<LSPHoverMonitor> monitor =
        client->hover(LSPHoverParams(LSPTextDocumentIdentifier(QUrl()), LSPPosition(0, 0)));
    EXPECT_EQ(monitor->parent(), client.get());
    client.reset();
    EXPECT_FALSE(monitor);
}

TEST(RequestMonitor, MayDieBeforeItsAnswerComes)
{
    TestClient client;
    Peer peer(client);
    peer.shakeHands();
    delete client.hover(LSPHoverParams(LSPTextDocumentIdentifier(QUrl()), LSPPosition(0, 0)));
    QSignalSpy responses(&client, &LSPAbstractClient::responseReceived);
    peer.answer(peer.next(), QJsonValue::Null);
    EXPECT_TRUE(QTest::qWaitFor([&responses] { return responses.size() == 1; }));
}

TEST(RequestMonitor, BlocksNothingWhenItsAnswerNeverComes)
{
    TestClient client;
    Peer peer(client);
    peer.shakeHands();
    const LSPTextDocumentIdentifier document(QUrl(QStringLiteral("file:///a.py")));
    client.completion(LSPCompletionParams(document, LSPPosition(0, 0)));
    LSPHoverMonitor* hover = client.hover(LSPHoverParams(document, LSPPosition(0, 0)));
    QSignalSpy ready(hover, &LSPHoverMonitor::responseReady);
    peer.next();
    peer.answer(peer.next(), QJsonValue::Null);
    EXPECT_TRUE(QTest::qWaitFor([&ready] { return ready.size() == 1; }));
}
