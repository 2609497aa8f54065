#include "languageclient/records/servercapabilities.h"

#include "jsonobject.h"

#include <gmock/gmock.h>

using namespace Halvorin::LSP;
using Capability = LSPServerCapabilities::ServerCapability;

namespace {

struct Row
{
    const char* name;
    /// What a value under the key says: absent, null, false, true, {}, {"key": 1}, 0, 2, "text", [].
    const char* supported;
};

// Present whatever the value, and a boolean or anything else.
constexpr const char* present = ".+++++++++";
constexpr const char* trueOrOptions = ".+.+++++++";

const Row rows[] = {
    {"positionEncoding", present},
    {"textDocumentSync", ".......+.."},
    {"notebookDocumentSync", ".........."},
    {"completionProvider", present},
    {"hoverProvider", present},
    {"signatureHelpProvider", present},
    {"declarationProvider", trueOrOptions},
    {"definitionProvider", trueOrOptions},
    {"typeDefinitionProvider", trueOrOptions},
    {"implementationProvider", trueOrOptions},
    {"referencesProvider", trueOrOptions},
    {"documentHighlightProvider", trueOrOptions},
    {"documentSymbolProvider", trueOrOptions},
    {"codeActionProvider", trueOrOptions},
    {"codeLensProvider", present},
    {"documentLinkProvider", present},
    {"colorProvider", trueOrOptions},
    {"documentFormattingProvider", trueOrOptions},
    {"documentRangeFormattingProvider", trueOrOptions},
    {"documentOnTypeFormattingProvider", present},
    {"renameProvider", trueOrOptions},
    {"foldingRangeProvider", trueOrOptions},
    {"executeCommandProvider", present},
    {"selectionRangeProvider", trueOrOptions},
    {"linkedEditingRangeProvider", trueOrOptions},
    {"callHierarchyProvider", trueOrOptions},
    {"semanticTokensProvider", present},
    {"monikerProvider", trueOrOptions},
    {"typeHierarchyProvider", trueOrOptions},
    {"inlineValueProvider", trueOrOptions},
    {"inlayHintProvider", trueOrOptions},
    {"diagnosticProvider", present},
    {"workspaceSymbolProvider", trueOrOptions},
    {"workspace/workspaceFolders", "....++...."},
    {"workspace/fileOperations/didCreate", present},
    {"workspace/fileOperations/willCreate", present},
    {"workspace/fileOperations/didRename", present},
    {"workspace/fileOperations/willRename", present},
    {"workspace/fileOperations/didDelete", present},
    {"workspace/fileOperations/willDelete", present},
    {"experimental", present},
};

const QJsonArray values{QJsonValue::Undefined,
                        QJsonValue::Null,
                        false,
                        true,
                        QJsonObject(),
                        QJsonObject{{QStringLiteral("key"), 1}},
                        0,
                        2,
                        QStringLiteral("text"),
                        QJsonArray()};

/// An object with the value at the end of the path, or all of the path but its end.
QJsonObject objectWith(const QStringList& path, const QJsonValue& value)
{
    if (path.size() == 1)
        return value.isUndefined() ? QJsonObject() : QJsonObject{{path.first(), value}};
    return {{path.first(), objectWith(path.mid(1), value)}};
}

bool supports(const char* object, Capability capability)
{
    return LSPServerCapabilities(jsonObject(object)).supports(capability);
}

} // namespace

TEST(ServerCapabilities, AreFortyOneInTheirOrder)
{
    const auto all = LSPServerCapabilities::allCapabilities();
    ASSERT_EQ(all.size(), 41u);
    ASSERT_EQ(std::size(rows), 41u);
    for (std::size_t i = 0; i < all.size(); ++i) {
        EXPECT_EQ(static_cast<std::size_t>(all[i]), i);
        EXPECT_EQ(LSPServerCapabilities::capabilityName(all[i]), QLatin1String(rows[i].name));
    }
}

TEST(ServerCapabilities, AreSupportedAsTheValueUnderTheirKeySays)
{
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const QStringList path = QString(QLatin1String(rows[i].name)).split(QLatin1Char('/'));
        std::string supported;
        for (int value = 0; value < values.size(); ++value) {
            const QJsonValue set = value == 0 ? QJsonValue(QJsonValue::Undefined) : values[value];
            const LSPServerCapabilities capabilities(objectWith(path, set));
            supported += capabilities.supports(static_cast<Capability>(i)) ? '+' : '.';
        }
        EXPECT_EQ(supported, rows[i].supported) << rows[i].name;
    }
}

TEST(ServerCapabilities, OutsideTheEnumerationAreUnsupportedAndHaveNoName)
{
    const LSPServerCapabilities capabilities(jsonObject(R"({"experimental": true, "": true})"));
    for (const unsigned value : {41u, 42u, 0xffffffffu}) {
        EXPECT_FALSE(capabilities.supports(static_cast<Capability>(value)));
        EXPECT_EQ(LSPServerCapabilities::capabilityName(static_cast<Capability>(value)), QString());
    }
}

TEST(ServerCapabilities, SynchroniseDocumentsUnlessTheKindIsNone)
{
    EXPECT_FALSE(supports(R"({"textDocumentSync": 0})", Capability::TextDocumentSync));
    EXPECT_TRUE(supports(R"({"textDocumentSync": 1})", Capability::TextDocumentSync));
    EXPECT_FALSE(supports(R"({"textDocumentSync": {"openClose": true}})", Capability::TextDocumentSync));
    EXPECT_FALSE(supports(R"({"textDocumentSync": {"change": 0}})", Capability::TextDocumentSync));
    EXPECT_TRUE(supports(R"({"textDocumentSync": {"change": 2}})", Capability::TextDocumentSync));
    EXPECT_FALSE(supports(R"({"textDocumentSync": {"change": "2"}})", Capability::TextDocumentSync));
}

TEST(ServerCapabilities, SynchroniseNotebooksByTheEncodingOfPositions)
{
    EXPECT_FALSE(supports(R"({"notebookDocumentSync": {}})", Capability::NotebookDocumentSync));
    EXPECT_TRUE(supports(R"({"positionEncoding": "utf-16"})", Capability::NotebookDocumentSync));
}

TEST(ServerCapabilities, TakeAFalseProviderAsItsTypeHasIt)
{
    EXPECT_FALSE(supports(R"({"definitionProvider": false})", Capability::DefinitionProvider));
    EXPECT_TRUE(supports(R"({"hoverProvider": false})", Capability::HoverProvider));
}

TEST(ServerCapabilities, OfTheWorkspaceStandInObjects)
{
    EXPECT_FALSE(supports(R"({"workspace": true})", Capability::WorkspaceFolders));
    EXPECT_FALSE(supports(R"({"workspace": [{"workspaceFolders": {}}]})", Capability::WorkspaceFolders));
    EXPECT_FALSE(supports(R"({"workspace": {"fileOperations": true}})", Capability::FileOperationsDidCreate));
    EXPECT_FALSE(supports(R"({"workspace/workspaceFolders": {}})", Capability::WorkspaceFolders));
    EXPECT_FALSE(supports(R"({"workspace": {"fileOperations": {"didCreate": {}}}})",
                          Capability::FileOperationsWillCreate));
}

TEST(ServerCapabilities, HaveTypedReadersForWhatIsUsed)
{
    const LSPServerCapabilities capabilities(jsonObject(
        R"({"completionProvider": {"triggerCharacters": [".", "["], "resolveProvider": true},
            "signatureHelpProvider": {"triggerCharacters": ["("], "retriggerCharacters": [","]}})"));
    const auto completion = capabilities.completionProvider();
    ASSERT_TRUE(completion);
    EXPECT_EQ(completion->triggerCharacters(),
              (std::vector<QString>{QStringLiteral("."), QStringLiteral("[")}));
    EXPECT_EQ(completion->resolveProvider(), true);
    const auto signature = capabilities.signatureHelpProvider();
    ASSERT_TRUE(signature);
    EXPECT_EQ(signature->retriggerCharacters(), std::vector<QString>{QStringLiteral(",")});
    EXPECT_FALSE(LSPServerCapabilities().completionProvider());
    EXPECT_FALSE(LSPServerCapabilities(jsonObject(R"({"completionProvider": true})")).completionProvider());
}
