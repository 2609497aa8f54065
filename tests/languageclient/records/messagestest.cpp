#include "languageclient/records/messages.h"
#include "languageclient/records/hover.h"
#include "languageclient/records/typedmessages.h"

#include "jsonobject.h"

#include <QVariant>
#include <gmock/gmock.h>

using namespace Halvorin::LSP;

namespace {

const QLatin1String idKey("id");

} // namespace

TEST(Messages, ARequestHoldsVersionIdMethodAndTheParamsOfARecord)
{
    const LSPHoverParams params(LSPTextDocumentIdentifier(QUrl(QStringLiteral("file:///a%20b.py"))),
                                LSPPosition(3, 4));
    EXPECT_EQ(LSPRequestMessage(7, QStringLiteral("textDocument/hover"), params).toJson(),
              jsonObject(R"({"jsonrpc": "2.0", "id": 7, "method": "textDocument/hover",
                             "params": {"textDocument": {"uri": "file:///a%20b.py"},
                                        "position": {"line": 3, "character": 4}}})"));
    EXPECT_EQ(LSPRequestMessage(0, QStringLiteral("shutdown")).toJson(),
              jsonObject(R"({"jsonrpc": "2.0", "id": 0, "method": "shutdown"})"));
}

TEST(Messages, ANotificationHoldsVersionMethodAndTheParamsOfARecord)
{
    EXPECT_EQ(LSPNotificationMessage(QStringLiteral("exit")).toJson(),
              jsonObject(R"({"jsonrpc": "2.0", "method": "exit"})"));
    EXPECT_EQ(
        LSPNotificationMessage(QStringLiteral("workspace/didChangeConfiguration"),
                               LSPDidChangeConfigurationParams(QJsonValue(jsonObject(R"({"python": {}})"))))
            .toJson(),
        jsonObject(R"({"jsonrpc": "2.0", "method": "workspace/didChangeConfiguration",
                             "params": {"settings": {"python": {}}}})"));
}

TEST(Messages, AMessageMadeOfAnObjectIsThatObject)
{
    const QJsonObject object = jsonObject(R"({"id": 1, "method": "m", "extra": [1]})");
    EXPECT_EQ(LSPMessage(object).toJson(), object);
    EXPECT_EQ(LSPRequestMessage(object).toJson(), object);
    EXPECT_EQ(LSPNotificationMessage(object).toJson(), object);
    EXPECT_EQ(LSPResponseMessage(object).toJson(), object);
    EXPECT_EQ(LSPConfigurationRequest(object).toJson(), object);
    EXPECT_EQ(LSPPublishDiagnosticsNotification(object).toJson(), object);
}

TEST(Messages, TheVersionOfAnIncomingMessageIsNotChecked)
{
    LSPResponseMessage response;
    EXPECT_TRUE(response.fromJson(jsonObject(R"({"jsonrpc": "1.0", "id": 2})")));
    EXPECT_EQ(response.jsonrpc(), QStringLiteral("1.0"));
}

TEST(Messages, ParamsAreAnObjectOrAnArray)
{
    LSPRequestMessage request(1, QStringLiteral("m"));
    EXPECT_FALSE(request.params());
    request.setParams(QJsonArray{1, 2});
    EXPECT_EQ(std::get<QJsonArray>(*request.params()), (QJsonArray{1, 2}));
    request.setParams(jsonObject(R"({"a": 1})"));
    EXPECT_EQ(std::get<QJsonObject>(*request.params()), jsonObject(R"({"a": 1})"));
    EXPECT_FALSE(LSPRequestMessage(jsonObject(R"({"params": 5})")).params());
}

TEST(Messages, AReplyTakesTheIdOfItsRequestAsItStandsThere)
{
    LSPRequestMessage request(5, QStringLiteral("workspace/configuration"));
    EXPECT_EQ(LSPResponseMessage(request, QJsonArray{1}).toJson(),
              jsonObject(R"({"jsonrpc": "2.0", "id": 5, "result": [1]})"));
    request.setId(QStringLiteral("five"));
    EXPECT_EQ(request.id(), 0);
    EXPECT_EQ(LSPResponseMessage(request, QJsonValue::Null).toJson(),
              jsonObject(R"({"jsonrpc": "2.0", "id": "five", "result": null})"));
    EXPECT_EQ(LSPResponseMessage(request, LSPResponseError(-32603, QStringLiteral("unknown error"))).toJson(),
              jsonObject(R"({"jsonrpc": "2.0", "id": "five",
                             "error": {"code": -32603, "message": "unknown error"}})"));
}

TEST(Messages, AResponseStartsWithItsIdAndNoMore)
{
    EXPECT_EQ(LSPResponseMessage().toJson(), jsonObject(R"({"jsonrpc": "2.0", "id": null})"));
    EXPECT_EQ(LSPResponseMessage(3).toJson(), jsonObject(R"({"jsonrpc": "2.0", "id": 3})"));
}

TEST(Messages, AResponseNeedsNeitherResultNorError)
{
    LSPResponseMessage response;
    EXPECT_TRUE(response.missingParameters().isEmpty());
    EXPECT_TRUE(response.fromJson(jsonObject(R"({"id": 4})")));
    EXPECT_EQ(response.id(), 4);
    EXPECT_FALSE(response.result());
    EXPECT_FALSE(response.error());
    EXPECT_FALSE(response.fromJson(jsonObject(R"({"result": 1})")));
    EXPECT_EQ(response.id(), 4);
}

TEST(Messages, ANullResultIsAResult)
{
    const LSPResponseMessage response(jsonObject(R"({"id": 4, "result": null})"));
    ASSERT_TRUE(response.result());
    EXPECT_TRUE(response.result()->isNull());
}

TEST(Messages, ErrorDataOfEachTypeKeepsItsType)
{
    LSPResponseError error(1, QStringLiteral("text"));
    EXPECT_FALSE(error.data());
    error.setData(nullptr);
    EXPECT_EQ(error.data(), QJsonValue(QJsonValue::Null));
    error.setData(3);
    EXPECT_EQ(error.data(), QJsonValue(3));
    error.setData(2.5);
    EXPECT_EQ(error.data(), QJsonValue(2.5));
    error.setData(true);
    EXPECT_EQ(error.data(), QJsonValue(true));
    error.setData(QStringLiteral("t"));
    EXPECT_EQ(error.data(), QJsonValue(QStringLiteral("t")));
    error.setData(QJsonArray{1});
    EXPECT_EQ(error.data(), QJsonValue(QJsonArray{1}));
    error.setData(jsonObject(R"({"a": 1})"));
    EXPECT_EQ(error.data(), QJsonValue(jsonObject(R"({"a": 1})")));
    EXPECT_EQ(error.code(), 1);
    EXPECT_EQ(error.message(), QStringLiteral("text"));
}

TEST(Messages, AnExceptionSaysTheErrorsMessageInUtf8)
{
    EXPECT_STREQ(LSPRequestException(LSPResponseError(1, QString::fromUtf8("fünf €"))).what(), "fünf €");
    EXPECT_STREQ(LSPRequestException(LSPResponseError(jsonObject("{}"))).what(), "");
    EXPECT_STREQ(LSPRequestException(LSPResponseError(jsonObject(R"({"message": 5})"))).what(), "");
}

TEST(Messages, TypedRequestsHaveTheirMethodAndParams)
{
    EXPECT_EQ(LSPCompletionItemResolveRequest(9, LSPCompletionItem(QStringLiteral("x"))).toJson(),
              jsonObject(R"({"jsonrpc": "2.0", "id": 9, "method": "completionItem/resolve",
                             "params": {"label": "x"}})"));
    const LSPSemanticTokensParams params(LSPTextDocumentIdentifier(QUrl(QStringLiteral("file:///a.py"))));
    EXPECT_EQ(LSPSemanticTokensRequest(8, params).toJson(),
              jsonObject(R"({"jsonrpc": "2.0", "id": 8, "method": "textDocument/semanticTokens/full",
                             "params": {"textDocument": {"uri": "file:///a.py"}}})"));
}

TEST(Messages, AConfigurationRequestReadsItsItems)
{
    const LSPConfigurationRequest request(jsonObject(
        R"({"id": "a", "method": "workspace/configuration",
            "params": {"items": [{"section": "python"}, {"scopeUri": "file:///a.py"}]}})"));
    const auto items = request.configurationParams().items();
    ASSERT_TRUE(items);
    ASSERT_EQ(items->size(), 2u);
    EXPECT_EQ(items->at(0).section(), QStringLiteral("python"));
    EXPECT_EQ(items->at(0).scopeUri(), std::nullopt);
    EXPECT_EQ(items->at(1).section(), std::nullopt);
    EXPECT_EQ(items->at(1).scopeUri(), QUrl(QStringLiteral("file:///a.py")));
    EXPECT_FALSE(LSPConfigurationRequest(jsonObject(R"({"params": [1]})")).configurationParams().items());
    EXPECT_FALSE(LSPConfigurationRequest().configurationParams().items());
}

TEST(Messages, ADiagnosticsNotificationReadsItsDiagnostics)
{
    const LSPPublishDiagnosticsNotification notification(jsonObject(
        R"({"method": "textDocument/publishDiagnostics",
            "params": {"uri": "file:///a.py", "diagnostics": [{"message": "bad", "code": "E1"}]}})"));
    const LSPPublishDiagnosticsParams params = notification.diagnosticsParams();
    EXPECT_EQ(params.uri(), QUrl(QStringLiteral("file:///a.py")));
    ASSERT_TRUE(params.diagnostics());
    EXPECT_EQ(params.diagnostics()->at(0).message(), QStringLiteral("bad"));
    EXPECT_EQ(std::get<QString>(*params.diagnostics()->at(0).code()), QStringLiteral("E1"));
    EXPECT_FALSE(LSPPublishDiagnosticsNotification().diagnosticsParams().diagnostics());
}

TEST(Messages, TravelInVariants)
{
    const QVariant variant = QVariant::fromValue(LSPResponseMessage(6));
    EXPECT_EQ(variant.value<LSPResponseMessage>().value(idKey), QJsonValue(6));
    EXPECT_TRUE(QVariant::fromValue(LSPMessage()).canConvert<LSPMessage>());
    EXPECT_TRUE(QVariant::fromValue(LSPPublishDiagnosticsNotification())
                    .canConvert<LSPPublishDiagnosticsNotification>());
}
