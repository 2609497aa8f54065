#include "languageclient/lsppythonclient.h"

#include "HostSupport/options.h"
#include "HostSupport/optionstore.h"
#include "languageclient/lspworkspacesettings.h"
#include "languageclient/peer.h"
#include "languageclient/pythonpathsource.h"
#include "support/temporaryfolder.h"

using namespace Halvorin::LSP;

namespace {

/// The options of this process stand in a file of the test's own.
class PythonClient : public testing::Test
{
protected:
    PythonClient() { HostSupport::OptionStore::instance().useFile((m_folder / "options.ini").string()); }

    ~PythonClient() override { setPythonPathSource({}); }

    static std::string settingsOf(const LSPPythonClient& client)
    {
        return jsonText(client.workspaceSettings()->value(QString()).toObject());
    }

private:
    TemporaryFolder m_folder;
};

} // namespace

TEST_F(PythonClient, AdvertisesWhatTheEditorsCanDoAndNothingElse)
{
    const LSPPythonClient client;
    EXPECT_EQ(client.clientCapabilities().toJson(), json(R"({
        "workspace": {"configuration": true},
        "textDocument": {
            "completion": {
                "dynamicRegistration": true,
                "contextSupport": true,
                "completionItem": {
                    "snippetSupport": true,
                    "commitCharactersSupport": true,
                    "documentationFormat": ["plaintext"],
                    "deprecatedSupport": true,
                    "preselectSupport": true,
                    "insertReplaceSupport": true,
                    "insertTextModeSupport": {"valueSet": [1, 2]},
                    "labelDetailsSupport": true
                }
            },
            "hover": {"contentFormat": ["plaintext"]},
            "signatureHelp": {
                "dynamicRegistration": true,
                "signatureInformation": {"documentationFormat": ["plaintext"]}
            },
            "documentSymbol": {"dynamicRegistration": true, "hierarchicalDocumentSymbolSupport": true}
        }})"));
}

TEST_F(PythonClient, TellsTheServerThePathOfTheVersionInTheOption)
{
    sp_WriteOption("python.pythonVersion", "3.12");
    setPythonPathSource([](const QString& version) { return QStringLiteral("/pythons/") + version; });
    LSPPythonClient client;
    EXPECT_EQ(settingsOf(client), R"({"python":{"pythonPath":"/pythons/3.12"}})");
    Peer peer(client);
    peer.shakeHands();
    EXPECT_EQ(
        jsonText(peer.next()),
        R"({"jsonrpc":"2.0","method":"workspace/didChangeConfiguration","params":{"settings":{"python":{"pythonPath":"/pythons/3.12"}}}})");
}

TEST_F(PythonClient, LeavesTheServerItsDefaultWithoutAVersion)
{
    setPythonPathSource([](const QString&) { return QStringLiteral("/never"); });
    LSPPythonClient client;
    EXPECT_EQ(settingsOf(client), "{}");
    Peer peer(client);
    peer.shakeHands();
    peer.send(
        json(R"({"id":1,"method":"workspace/configuration","params":{"items":[{"section":"python"}]}})"));
    EXPECT_EQ(jsonText(peer.next()), R"({"id":1,"jsonrpc":"2.0","result":[null]})");
}

TEST_F(PythonClient, TellsAServerThatIsReadyOfAnotherPathOnce)
{
    LSPPythonClient client;
    Peer peer(client);
    peer.shakeHands();
    client.setPythonPath(QStringLiteral("/other"));
    EXPECT_EQ(
        jsonText(peer.next()),
        R"({"jsonrpc":"2.0","method":"workspace/didChangeConfiguration","params":{"settings":{"python":{"pythonPath":"/other"}}}})");
    EXPECT_TRUE(peer.hearsNothing());
    EXPECT_EQ(client.status(), LSPClientStatus::Ready);
}

TEST_F(PythonClient, AnswersASectionWithItsTree)
{
    LSPPythonClient client;
    client.setPythonPath(QStringLiteral("/p"));
    Peer peer(client);
    peer.shakeHands();
    peer.next(); // didChangeConfiguration
    peer.send(
        json(R"({"id":1,"method":"workspace/configuration","params":{"items":[{"section":"python"}]}})"));
    EXPECT_EQ(jsonText(peer.next()), R"({"id":1,"jsonrpc":"2.0","result":[{"pythonPath":"/p"}]})");
}
