#include "languageclient/records/completion.h"
#include "languageclient/records/positions.h"
#include "languageclient/records/signaturehelp.h"
#include "languageclient/records/symbols.h"

#include "jsonobject.h"

#include <gmock/gmock.h>

using namespace Halvorin::LSP;

namespace {

#define RANGE R"({"start": {}, "end": {}})"

template <class Record>
QString missing(const QByteArray& text)
{
    return Record(jsonObject(text)).missingParameters().join(QLatin1Char('\n'));
}

/// A symbol inside a symbol, as many as told; the innermost lacks its kind.
QByteArray nestedSymbols(int count)
{
    const QByteArray inner = R"("name": "n", "range": )" RANGE R"(, "selectionRange": )" RANGE;
    const QByteArray outer = R"({"kind": 5, )" + inner + R"(, "children": [)";
    return outer.repeated(count - 1) + '{' + inner + '}' + QByteArray("]}").repeated(count - 1);
}

} // namespace

TEST(NestedChecks, ACompletionListAsksItsItemsAndDefaults)
{
    EXPECT_EQ(missing<LSPCompletionList>(R"({"isIncomplete": false, "items": [{"label": "a"}]})"), QString());
    EXPECT_EQ(missing<LSPCompletionList>(R"({"isIncomplete": false, "items": [{"label": "a"}, {}, {}]})"),
              QStringLiteral("Missing parameter: label"));
    EXPECT_EQ(missing<LSPCompletionList>(R"({"items": [{}]})"),
              QStringLiteral("Missing parameter: isIncomplete\nMissing parameter: label"));
    LSPCompletionList list;
    EXPECT_FALSE(list.fromJson(jsonObject(R"({"isIncomplete": false, "items": [{"kind": 1}]})")));
    EXPECT_EQ(list.toJson(), QJsonObject());
}

TEST(NestedChecks, ADefaultEditRangeIsNotAsked)
{
    EXPECT_EQ(missing<LSPCompletionList>(
                  R"({"isIncomplete": false, "items": [], "itemDefaults": {"editRange": {}}})"),
              QString());
}

TEST(NestedChecks, ADocumentSymbolAsksItsRangesAndChildren)
{
    EXPECT_EQ(missing<LSPDocumentSymbol>(R"({"name": "n", "kind": 5, "range": {"start": {}},
                                             "selectionRange": {"end": {}}})"),
              QStringLiteral("Missing parameter: end\nMissing parameter: start"));
    EXPECT_EQ(missing<LSPDocumentSymbol>(R"({"name": "n", "range": )" RANGE R"(, "selectionRange": )" RANGE
                                         R"(, "children": [{"name": "n", "kind": 5}]})"),
              QStringLiteral("Missing parameter: kind\nMissing parameter: range\n"
                             "Missing parameter: selectionRange"));
    EXPECT_EQ(missing<LSPDocumentSymbol>(nestedSymbols(4)), QStringLiteral("Missing parameter: kind"));
}

TEST(NestedChecks, SymbolsNestAsDeepAsTheJsonReaderGoes)
{
    // two levels of JSON for each symbol, two more for the innermost one's range, of 1024
    EXPECT_EQ(missing<LSPDocumentSymbol>(nestedSymbols(511)), QStringLiteral("Missing parameter: kind"));
    EXPECT_THROW(jsonObject(nestedSymbols(513)), std::invalid_argument);
}

TEST(NestedChecks, ASignatureAsksItsDocumentationAndParameters)
{
    EXPECT_EQ(missing<LSPSignatureInformation>(R"({"label": "f", "documentation": "text",
                                                   "parameters": [{"label": "x"}]})"),
              QString());
    EXPECT_EQ(missing<LSPSignatureInformation>(R"({"label": "f", "documentation": {"kind": "plaintext"},
                                                   "parameters": [{}]})"),
              QStringLiteral("Missing parameter: value\nMissing parameter: label"));
    EXPECT_EQ(missing<LSPSignatureInformation>(R"({"label": "f", "parameters": [{"label": "x",
                                                   "documentation": {}}]})"),
              QString());
    EXPECT_EQ(missing<LSPSignatureInformation>(R"({"parameters": [{}]})"),
              QStringLiteral("Missing parameter: label"));
}

TEST(NestedChecks, SignatureHelpAsksItsSignaturesAndThroughThemTheirParameters)
{
    EXPECT_EQ(missing<LSPSignatureHelp>(R"({"signatures": [{"label": "f"}]})"), QString());
    EXPECT_EQ(missing<LSPSignatureHelp>(R"({"signatures": [{}]})"),
              QStringLiteral("Missing parameter: label"));
    EXPECT_EQ(missing<LSPSignatureHelp>(R"({"signatures": [{"label": "f", "parameters": [{}]}]})"),
              QStringLiteral("Missing parameter: label"));
}

TEST(NestedChecks, ValuesThatAreNoRecordsAreNotAsked)
{
    EXPECT_EQ(missing<LSPCompletionList>(R"({"isIncomplete": 0, "items": [1, "a", []], "itemDefaults": 1})"),
              QString());
    EXPECT_EQ(missing<LSPDocumentSymbol>(
                  R"({"name": 1, "kind": 1, "range": 1, "selectionRange": [], "children": {}})"),
              QString());
    EXPECT_EQ(missing<LSPSignatureHelp>(R"({"signatures": {"label": 1}})"), QString());
}

TEST(NestedChecks, OtherRecordsDoNotAskTheirNestedOnes)
{
    EXPECT_EQ(missing<LSPLocation>(R"({"uri": "file:///a.py", "range": {}})"), QString());
    EXPECT_EQ(missing<LSPCompletionParams>(R"({"textDocument": {}, "position": {}, "context": {}})"),
              QString());
}
