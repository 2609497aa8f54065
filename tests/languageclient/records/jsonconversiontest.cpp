#include "languageclient/records/completion.h"
#include "languageclient/records/hover.h"
#include "languageclient/records/initialize.h"
#include "languageclient/records/semantictokens.h"
#include "languageclient/records/signaturehelp.h"

#include "jsonobject.h"

#include <gmock/gmock.h>

using namespace Halvorin::LSP;

namespace {

template <class T>
std::optional<T> read(const QByteArray& text)
{
    return LSPJson<T>::read(jsonObject("{\"value\": " + text + '}').value(QLatin1String("value")));
}

} // namespace

TEST(JsonConversion, ANumberThatNoIntegerHoldsReadsAsZero)
{
    EXPECT_EQ(read<int>("-2147483648"), -2147483647 - 1);
    EXPECT_EQ(read<int>("2147483648"), 0);
    EXPECT_EQ(read<int>("1.5"), 0);
    EXPECT_EQ(read<int>("1e300"), 0);
    EXPECT_EQ(read<int>("\"1\""), std::nullopt);
    EXPECT_EQ(read<unsigned>("4294967295"), 4294967295u);
    EXPECT_EQ(read<unsigned>("4294967296"), 0u);
    EXPECT_EQ(read<unsigned>("-1"), 0u);
    EXPECT_EQ(read<unsigned>("1.5"), 0u);
    EXPECT_EQ(read<unsigned>("true"), std::nullopt);
}

TEST(JsonConversion, AUrlIsWrittenEncoded)
{
    const QUrl url = QUrl::fromLocalFile(QString::fromUtf8("/ä b/%.py"));
    EXPECT_EQ(LSPJson<QUrl>::write(url), QJsonValue(QStringLiteral("file:///%C3%A4%20b/%25.py")));
    EXPECT_EQ(read<QUrl>(R"("file:///%C3%A4%20b/%25.py")"), url);
    EXPECT_EQ(LSPJson<QUrl>::write(QUrl()), QJsonValue(QString()));
}

TEST(JsonConversion, APairIsAnArrayOfExactlyTwo)
{
    EXPECT_EQ(read<LSPParameterLabelSpan>("[2, 3]"), LSPParameterLabelSpan(2, 3));
    EXPECT_EQ(read<LSPParameterLabelSpan>("[2]"), std::nullopt);
    EXPECT_EQ(read<LSPParameterLabelSpan>("[2, 3, 4]"), std::nullopt);
    EXPECT_EQ(read<LSPParameterLabelSpan>("[2, \"3\"]"), std::nullopt);
}

TEST(JsonConversion, AUnionIsToldByTheTypeOfTheValue)
{
    LSPCompletionItem item(QStringLiteral("x"));
    EXPECT_EQ(item.documentation(), std::nullopt);
    item.setDocumentation(QStringLiteral("text"));
    EXPECT_EQ(std::get<QString>(*item.documentation()), QStringLiteral("text"));
    item.setDocumentation(LSPMarkupContent(LSPMarkupKind::Markdown, QStringLiteral("*text*")));
    EXPECT_EQ(std::get<LSPMarkupContent>(*item.documentation()).kind(), LSPMarkupKind::Markdown);

    LSPInitializeParams params(nullptr, nullptr, LSPClientCapabilities());
    EXPECT_TRUE(std::holds_alternative<std::nullptr_t>(params.processId()));
    params.setProcessId(12);
    EXPECT_EQ(std::get<int>(params.processId()), 12);
    params.setRootUri(QUrl(QStringLiteral("file:///folder")));
    EXPECT_EQ(std::get<QUrl>(params.rootUri()), QUrl(QStringLiteral("file:///folder")));
}

TEST(JsonConversion, BetweenRecordsTheOneWithItsRequiredKeysIsTaken)
{
    const auto contents = [](const char* text) { return LSPHover(jsonObject(text)).contents(); };
    EXPECT_TRUE(std::holds_alternative<LSPMarkupContent>(
        contents(R"({"contents": {"kind": "markdown", "value": "a"}})")));
    EXPECT_TRUE(std::holds_alternative<LSPMarkedString>(
        contents(R"({"contents": {"language": "python", "value": "a"}})")));
    EXPECT_TRUE(std::holds_alternative<LSPMarkedString>(contents(R"({"contents": {"value": "a"}})")));

    const LSPCompletionItem replacing(
        jsonObject(R"({"textEdit": {"newText": "a", "insert": {}, "replace": {}}})"));
    EXPECT_TRUE(std::holds_alternative<LSPInsertReplaceEdit>(*replacing.textEdit()));
    const LSPCompletionItem partial(jsonObject(R"({"textEdit": {"newText": "a"}})"));
    EXPECT_TRUE(std::holds_alternative<LSPTextEdit>(*partial.textEdit()));
}

TEST(JsonConversion, HoverContentsMayBeAnArrayOfTextsAndPiecesOfCode)
{
    const LSPHover hover(jsonObject(R"({"contents": ["text", {"language": "python", "value": "pass"}]})"));
    const auto lines = std::get<std::vector<LSPHoverLine>>(hover.contents());
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(std::get<QString>(lines[0]), QStringLiteral("text"));
    EXPECT_EQ(std::get<LSPMarkedString>(lines[1]).value(), QStringLiteral("pass"));
    EXPECT_EQ(std::get<QString>(LSPHover(jsonObject(R"({"contents": ["text", 5]})")).contents()), QString());
}

TEST(JsonConversion, ACompletionWithALabelAloneHasNothingElse)
{
    LSPCompletionItem item;
    EXPECT_TRUE(item.fromJson(jsonObject(R"({"label": "x"})")));
    EXPECT_EQ(item.label(), QStringLiteral("x"));
    EXPECT_FALSE(item.contains(QLatin1String("sortText")));
    EXPECT_EQ(item.sortText(), std::nullopt);
    EXPECT_EQ(item.kind(), std::nullopt);
}

TEST(JsonConversion, AnOptionalKeyThatIsNullIsAsGoodAsAbsent)
{
    const LSPSignatureHelp help(jsonObject(R"({"signatures": [], "activeParameter": null})"));
    EXPECT_EQ(help.activeParameter(), std::nullopt);
}

TEST(JsonConversion, DataOfAnyTypeIsKeptUnread)
{
    const LSPCompletionItem item(jsonObject(R"({"label": "x", "data": {"id": [1, null]}})"));
    EXPECT_EQ(item.data(), QJsonValue(jsonObject(R"({"id": [1, null]})")));
    EXPECT_EQ(LSPCompletionItem(QStringLiteral("x")).data(), std::nullopt);
}

TEST(JsonConversion, AnUnknownTokenTypeMakesTheArrayNone)
{
    LSPSemanticTokensClientCapabilities capabilities;
    capabilities.setTokenTypes({LSPSemanticTokenType::Class, LSPSemanticTokenType::Enum});
    EXPECT_EQ(capabilities.toJson(), jsonObject(R"({"tokenTypes": ["class", "enum"]})"));
    EXPECT_EQ(
        LSPSemanticTokensClientCapabilities(jsonObject(R"({"tokenTypes": ["class", "label"]})")).tokenTypes(),
        std::nullopt);
}

TEST(JsonConversion, EachEndOfARangeIsSetByLineAndCharacter)
{
    LSPRange range;
    range.setStartLine(1);
    range.setStartCharacter(2);
    range.setEndLine(3);
    range.setEndCharacter(4);
    EXPECT_EQ(range.toJson(),
              jsonObject(R"({"start": {"line": 1, "character": 2}, "end": {"line": 3, "character": 4}})"));
    range.setStartLine(5);
    EXPECT_EQ(range.start().toJson(), jsonObject(R"({"line": 5, "character": 2})"));
}

TEST(JsonConversion, ADocumentsLanguageIsSetByNumberOrText)
{
    LSPTextDocumentItem item(QUrl(QStringLiteral("file:///a.py")), LSPLanguageId::Python, 0, QString());
    EXPECT_EQ(item.languageId(), QStringLiteral("python"));
    item.setLanguageId(LSPLanguageId::Unknown);
    EXPECT_EQ(item.languageId(), QStringLiteral("uknown"));
    item.setLanguageId(QStringLiteral("rust"));
    EXPECT_EQ(item.languageId(), QStringLiteral("rust"));
}
