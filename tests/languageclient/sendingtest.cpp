#include "languageclient/peer.h"
#include "languageclient/testclient.h"
#include "support/qtcore/hostlog.h"

#include <QSignalSpy>

using namespace Halvorin::LSP;
using enum LSPClientStatus;
using Lines = std::vector<std::string>;

namespace {

const QUrl document(QStringLiteral("file:///a.py"));

QString method(const QJsonObject& message)
{
    return message.value(QLatin1String("method")).toString();
}

LSPDidChangeTextDocumentParams change(const QUrl& uri, int version)
{
    return LSPDidChangeTextDocumentParams(
        LSPVersionedTextDocumentIdentifier(uri, version),
        std::vector{LSPTextDocumentContentChangeEvent(QStringLiteral("text %1").arg(version))});
}

int versionOf(const QJsonObject& message)
{
    return message.value(QLatin1String("params"))
        .toObject()
        .value(QLatin1String("textDocument"))
        .toObject()
        .value(QLatin1String("version"))
        .toInt();
}

} // namespace

TEST(Sending, HoldsBackUntilTheServerIsInitialized)
{
    TestClient client;
    client.didOpen(document, LSPLanguageId::Python, 1, QStringLiteral("import math"));
    client.didChange(change(document, 2));
    client.didClose(LSPTextDocumentIdentifier(document));
    Peer peer(client);
    peer.shakeHands();
    EXPECT_EQ(method(peer.next()), QLatin1String("textDocument/didOpen"));
    EXPECT_EQ(method(peer.next()), QLatin1String("textDocument/didChange"));
    EXPECT_EQ(method(peer.next()), QLatin1String("textDocument/didClose"));
}

TEST(Sending, WritesEachOperationWithItsMethodAndParams)
{
    TestClient client;
    Peer peer(client);
    peer.shakeHands();
    const auto next = [&peer] { return jsonText(peer.next()); };
    const LSPTextDocumentIdentifier identifier(document);
    const LSPPosition position(3, 7);

    client.didOpen(document, LSPLanguageId::Python, 1, QStringLiteral("x = 1\n"));
    EXPECT_EQ(
        next(),
        R"({"jsonrpc":"2.0","method":"textDocument/didOpen","params":{"textDocument":{"languageId":"python","text":"x = 1\n","uri":"file:///a.py","version":1}}})");
    client.didChange(change(document, 2));
    EXPECT_EQ(
        next(),
        R"({"jsonrpc":"2.0","method":"textDocument/didChange","params":{"contentChanges":[{"text":"text 2"}],"textDocument":{"uri":"file:///a.py","version":2}}})");
    client.didClose(identifier);
    EXPECT_EQ(
        next(),
        R"({"jsonrpc":"2.0","method":"textDocument/didClose","params":{"textDocument":{"uri":"file:///a.py"}}})");
    client.didChangeConfiguration(LSPDidChangeConfigurationParams(QJsonValue(json(R"({"a":1})"))));
    EXPECT_EQ(
        next(),
        R"({"jsonrpc":"2.0","method":"workspace/didChangeConfiguration","params":{"settings":{"a":1}}})");
    client.completion(LSPCompletionParams(identifier, position));
    EXPECT_EQ(
        next(),
        R"({"id":1,"jsonrpc":"2.0","method":"textDocument/completion","params":{"position":{"character":7,"line":3},"textDocument":{"uri":"file:///a.py"}}})");
    client.resolveCompletionItem(LSPCompletionItem(QStringLiteral("sqrt")));
    EXPECT_EQ(next(),
              R"({"id":2,"jsonrpc":"2.0","method":"completionItem/resolve","params":{"label":"sqrt"}})");
    client.documentSymbol(LSPDocumentSymbolParams(identifier));
    EXPECT_EQ(
        next(),
        R"({"id":3,"jsonrpc":"2.0","method":"textDocument/documentSymbol","params":{"textDocument":{"uri":"file:///a.py"}}})");
    client.hover(LSPHoverParams(identifier, position));
    EXPECT_EQ(
        next(),
        R"({"id":4,"jsonrpc":"2.0","method":"textDocument/hover","params":{"position":{"character":7,"line":3},"textDocument":{"uri":"file:///a.py"}}})");
    client.semanticTokens(LSPSemanticTokensParams(identifier));
    EXPECT_EQ(
        next(),
        R"({"id":5,"jsonrpc":"2.0","method":"textDocument/semanticTokens/full","params":{"textDocument":{"uri":"file:///a.py"}}})");
    client.signatureHelp(LSPSignatureHelpParams(identifier, position));
    EXPECT_EQ(
        next(),
        R"({"id":6,"jsonrpc":"2.0","method":"textDocument/signatureHelp","params":{"position":{"character":7,"line":3},"textDocument":{"uri":"file:///a.py"}}})");
    client.shutdown();
    EXPECT_EQ(next(), R"({"id":7,"jsonrpc":"2.0","method":"shutdown"})");
}

TEST(Sending, SaysWhatItSendsAndWhen)
{
    const HostLog log;
    TestClient client;
    QSignalSpy sent(&client, &LSPAbstractClient::messageSent);
    Peer peer(client);
    const QJsonObject request = peer.next();
    ASSERT_EQ(sent.size(), 1);
    EXPECT_EQ(sent.at(0).at(0).toJsonDocument().object(), request);
    EXPECT_TRUE(sent.at(0).at(1).toDateTime().isValid());
    EXPECT_EQ(log.linesOf("diagnostic: "),
              Lines{"diagnostic: langserv: sending message: " + jsonText(request)});
}

TEST(Sending, RefusesAMessageThatLacksKeys)
{
    TestClient client;
    try {
        client.send(LSPRequestMessage(QJsonObject()), Ready);
        FAIL();
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "message has errors: Missing parameter: id\nMissing parameter: method");
    }
}

TEST(Sending, SaysWhatItPutsIntoTheQueueInItsOwnClass)
{
    TestClient client;
    std::vector<bool> requests;
    std::vector<LSPClientStatus> required;
    QObject::connect(&client, &LSPAbstractClient::messageQueued,
                     [&](const LSPMessage& message, LSPClientStatus status) {
                         requests.push_back(dynamic_cast<const LSPRequestMessage*>(&message) != nullptr);
                         required.push_back(status);
                     });
    client.hover(LSPHoverParams(LSPTextDocumentIdentifier(document), LSPPosition(0, 0)));
    client.didClose(LSPTextDocumentIdentifier(document));
    EXPECT_EQ(requests, (std::vector<bool>{true, false}));
    EXPECT_EQ(required, (std::vector{Ready, Ready}));
}

TEST(Sending, KeepsRequestsAmongNotificationsInTheirOrder)
{
    TestClient client;
    client.didOpen(document, LSPLanguageId::Python, 1, QString());
    client.hover(LSPHoverParams(LSPTextDocumentIdentifier(document), LSPPosition(0, 0)));
    client.didClose(LSPTextDocumentIdentifier(document));
    Peer peer(client);
    peer.next();
    peer.write(frameOf(R"({"id":1,"result":{"capabilities":{}}})")); // the hover took the id 0
    EXPECT_EQ(method(peer.next()), QLatin1String("initialized"));
    EXPECT_EQ(method(peer.next()), QLatin1String("textDocument/didOpen"));
    EXPECT_EQ(method(peer.next()), QLatin1String("textDocument/hover"));
    EXPECT_EQ(method(peer.next()), QLatin1String("textDocument/didClose"));
}

TEST(Sending, DropsAnAnswerWhoseStatusIsNotReached)
{
    TestClient client;
    client.respond(LSPRequestMessage(7, QStringLiteral("workspace/configuration")), QJsonArray(), Ready);
    Peer peer(client);
    peer.shakeHands();
    EXPECT_TRUE(peer.hearsNothing());
}

TEST(Sending, KeepsTheLastSixtyFourChangesOfADocumentForALateServer)
{
    TestClient client;
    const QUrl other(QStringLiteral("file:///b.py"));
    client.didOpen(document, LSPLanguageId::Python, 0, QString());
    for (int version = 1; version <= 100; ++version)
        client.didChange(change(document, version));
    client.didChange(change(other, 1));
    Peer peer(client);
    peer.shakeHands();
    EXPECT_EQ(method(peer.next()), QLatin1String("textDocument/didOpen"));
    for (int version = 37; version <= 100; ++version)
        ASSERT_EQ(versionOf(peer.next()), version);
    EXPECT_EQ(versionOf(peer.next()), 1);
    EXPECT_TRUE(peer.hearsNothing());
}

TEST(Sending, DropsAMessageWithALogLineWhenTheConnectionIsLost)
{
    const HostLog log;
    TestClient client;
    QSignalSpy gone(&client, &LSPAbstractClient::serverDisconnected);
    QSignalSpy sent(&client, &LSPAbstractClient::messageSent);
    {
        Peer peer(client);
        peer.shakeHands();
    }
    EXPECT_TRUE(QTest::qWaitFor([&gone] { return gone.size() == 1; }));
    EXPECT_EQ(client.status(), Ready);
    const int before = sent.size();
    client.didClose(LSPTextDocumentIdentifier(document));
    client.respond(LSPRequestMessage(1, QStringLiteral("workspace/configuration")), QJsonArray(), Ready);
    EXPECT_EQ(sent.size(), before);
    EXPECT_EQ(log.linesOf("warning: "),
              (Lines{"warning: langserv: no connection to the server, message dropped: textDocument/didClose",
                     "warning: langserv: no connection to the server, message dropped: an answer"}));
}

TEST(Sending, CountsBytesNotCharacters)
{
    TestClient client;
    Peer peer(client);
    peer.shakeHands();
    client.didOpen(document, LSPLanguageId::Python, 1,
                   QString::fromUtf8("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x90\x8D"));
    const QJsonObject message = peer.next();
    EXPECT_EQ(message.value(QLatin1String("params"))
                  .toObject()
                  .value(QLatin1String("textDocument"))
                  .toObject()
                  .value(QLatin1String("text"))
                  .toString(),
              QString::fromUtf8("\xC3\xA4\xE2\x82\xAC\xF0\x9F\x90\x8D"));
}
