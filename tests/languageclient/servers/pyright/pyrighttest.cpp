#include "languageserver/pyright.h"

#include "HostSupport/optionstore.h"
#include "languageclient/lsppythonclient.h"
#include "languageclient/lspworkspacesettings.h"
#include "support/qtcore/processgone.h"
#include "support/temporaryfolder.h"

#include <QJsonArray>
#include <QPointer>
#include <QProcess>
#include <QSignalSpy>
#include <algorithm>
#include <filesystem>
#include <functional>
#include <gtest/gtest.h>

using namespace Halvorin::LSP;
using enum LSPClientStatus;

// Each test starts the server once: that, and its first analysis, is what takes the time.

namespace {

bool waitFor(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 60'000); // far beyond need
}

/// Whatever the one who runs the tests has set: the server is to take its own default.
[[maybe_unused]] const bool noVersion = [] {
    HostSupport::OptionStore::instance().setForThisRun("python.pythonVersion", "");
    return true;
}();

constexpr auto text = R"(import math

def area(radius: float, scale: int = 1) -> float:
    """Area of a circle."""
    return math.pi * radius ** 2 * scale

value = area(2, 
wrong: int = "text"
)";

/// A client with the real server, and a document that is open in it.
class PyrightClient
{
public:
    PyrightClient()
    {
        QObject::connect(client, &LSPPythonClient::publishDiagnosticsNotification,
                         [this](const LSPPublishDiagnosticsNotification& notification) {
                             diagnostics.push_back(notification.diagnosticsParams());
                         });
        client->start(pyrightLanguageServer().toStdWString());
        client->didOpen(document.uri(), LSPLanguageId::Python, 1, QString::fromUtf8(text));
    }
    PyrightClient(const PyrightClient&) = delete;
    PyrightClient& operator=(const PyrightClient&) = delete;
    ~PyrightClient() { delete client; }

    qint64 process() const { return client->findChild<QProcess*>()->processId(); }

    /// The answer to a request, read as what it is to be.
    template <class Monitor>
    typename Monitor::Result answer(Monitor* monitor) const
    {
        EXPECT_TRUE(waitFor([monitor] { return monitor->response().has_value(); }));
        monitor->deleteLater();
        return monitor->result();
    }

    /// The first diagnostics of a version of the document, waited for.
    LSPPublishDiagnosticsParams diagnosticsOf(int version) const
    {
        const auto ofVersion = [version](const LSPPublishDiagnosticsParams& params) {
            return params.version() == version;
        };
        EXPECT_TRUE(waitFor([&] { return std::ranges::any_of(diagnostics, ofVersion); })) << version;
        const auto found = std::ranges::find_if(diagnostics, ofVersion);
        return found == diagnostics.end() ? LSPPublishDiagnosticsParams() : *found;
    }

    TemporaryFolder folder;
    LSPTextDocumentIdentifier document{
        QUrl::fromLocalFile(QString::fromStdString((folder / "circle.py").string()))};
    QPointer<LSPPythonClient> client = new LSPPythonClient;
    std::vector<LSPPublishDiagnosticsParams> diagnostics;
};

bool mention(const LSPPublishDiagnosticsParams& params, const char* words)
{
    return std::ranges::any_of(*params.diagnostics(), [words](const LSPDiagnostic& diagnostic) {
        return diagnostic.message().contains(QLatin1String(words));
    });
}

} // namespace

TEST(Pyright, TellsWhatAnEditorAsksOfADocument)
{
    const PyrightClient pyright;
    LSPPythonClient& client = *pyright.client;
    const LSPTextDocumentIdentifier& document = pyright.document;

    const LSPPublishDiagnosticsParams first = pyright.diagnosticsOf(1);
    EXPECT_EQ(first.uri(), document.uri());
    EXPECT_TRUE(mention(first, "was not closed"));
    EXPECT_EQ(client.status(), Ready);

    const auto hover = pyright.answer(client.hover(LSPHoverParams(document, LSPPosition(6, 9))));
    ASSERT_TRUE(std::holds_alternative<LSPHover>(hover));
    const auto contents = std::get<LSPMarkupContent>(std::get<LSPHover>(hover).contents());
    EXPECT_EQ(contents.kind(), LSPMarkupKind::PlainText);
    EXPECT_TRUE(contents.value().contains(QLatin1String("Area of a circle.")));

    const auto signature =
        pyright.answer(client.signatureHelp(LSPSignatureHelpParams(document, LSPPosition(6, 16))));
    ASSERT_TRUE(std::holds_alternative<LSPSignatureHelp>(signature));
    const auto help = std::get<LSPSignatureHelp>(signature);
    EXPECT_EQ(help.signatures()->at(0).parameters()->size(), 2U);
    EXPECT_EQ(help.activeParameter().value_or(-1), 1);

    const auto completion =
        pyright.answer(client.completion(LSPCompletionParams(document, LSPPosition(4, 16))));
    ASSERT_TRUE(std::holds_alternative<LSPCompletionList>(completion));
    const auto items = *std::get<LSPCompletionList>(completion).items();
    const auto item = std::ranges::find_if(
        items, [](const LSPCompletionItem& candidate) { return candidate.label() == QLatin1String("pi"); });
    ASSERT_NE(item, items.end());
    const LSPCompletionItem resolved = pyright.answer(client.resolveCompletionItem(*item));
    EXPECT_EQ(resolved.label(), QLatin1String("pi"));
    EXPECT_TRUE(resolved.documentation());

    const auto symbols = pyright.answer(client.documentSymbol(LSPDocumentSymbolParams(document)));
    ASSERT_TRUE(std::holds_alternative<std::vector<LSPDocumentSymbol>>(symbols));
    EXPECT_EQ(std::get<std::vector<LSPDocumentSymbol>>(symbols).at(0).name(), QLatin1String("area"));

    client.didChange(LSPDidChangeTextDocumentParams(
        LSPVersionedTextDocumentIdentifier(document.uri(), 2),
        std::vector{LSPTextDocumentContentChangeEvent(QStringLiteral("wrong: int = 'text'\n"))}));
    const LSPPublishDiagnosticsParams second = pyright.diagnosticsOf(2);
    EXPECT_FALSE(mention(second, "was not closed"));
    EXPECT_TRUE(mention(second, "int"));
    const auto gone = pyright.answer(client.hover(LSPHoverParams(document, LSPPosition(5, 0))));
    EXPECT_TRUE(std::holds_alternative<Nothing>(gone));

    const qint64 process = pyright.process();
    pyright.client->deleteLater();
    EXPECT_TRUE(waitFor([&pyright] { return !pyright.client; }));
    EXPECT_TRUE(processGone(process));
}

TEST(Pyright, AsksForTheSettingsAndRunsTheInterpreterThatTheyName)
{
    const TemporaryFolder folder;
    const auto interpreter =
        folder.write("python", "#!/bin/sh\necho run >> '" + (folder / "run").string() + "'\nexit 1\n");
    std::filesystem::permissions(interpreter, std::filesystem::perms::owner_all);
    const QString path = QString::fromStdString(interpreter.string());

    const PyrightClient pyright;
    QSignalSpy received(pyright.client, &LSPPythonClient::messageReceived);
    QSignalSpy sent(pyright.client, &LSPPythonClient::messageSent);
    pyright.client->setPythonPath(path);
    EXPECT_TRUE(waitFor([&folder] { return std::filesystem::exists(folder / "run"); }));

    const auto asked = std::ranges::find_if(received, [](const QList<QVariant>& signal) {
        return signal.at(0).toJsonDocument().object().value(QLatin1String("method")) ==
               QLatin1String("workspace/configuration");
    });
    ASSERT_NE(asked, received.end());
    const auto told = std::ranges::find_if(sent, [&path](const QList<QVariant>& signal) {
        return signal.at(0)
            .toJsonDocument()
            .object()
            .value(QLatin1String("result"))
            .toArray()
            .contains(QJsonObject{{QStringLiteral("pythonPath"), path}});
    });
    EXPECT_NE(told, sent.end());
}

TEST(Pyright, GoesWithAClientThatIsDeletedWhileItWorks)
{
    const PyrightClient pyright;
    ASSERT_TRUE(waitFor([&pyright] { return pyright.client->status() == Ready; }));
    for (int line = 0; line < 8; ++line)
        pyright.client->completion(LSPCompletionParams(pyright.document, LSPPosition(line, 0)));
    QTest::qWait(20); // the requests are on their way
    const qint64 process = pyright.process();
    delete pyright.client;
    EXPECT_TRUE(processGone(process));
}
