#include "pyrightbenchmark.h"

#include "benchclient.h"
#include "languageclient/transport/serverprocess.h"
#include "languageserver/pyright.h"

#include <QJsonDocument>
#include <benchmark/benchmark.h>
#include <iostream>
#include <memory>

// What an editor's hover takes with the real server, without an edit before it.

using namespace Halvorin::LSP;

namespace {

// With an error in it: that it has been told of shows that the document is analysed.
const auto text = QStringLiteral(
    "import math\n\ndef area(radius: float) -> float:\n"
    "    \"\"\"Area of a circle.\"\"\"\n    return math.pi * radius ** 2\n\nwrong: int = \"\"\n");

LSPHoverParams place(const QUrl& document)
{
    return LSPHoverParams(LSPTextDocumentIdentifier(document), LSPPosition(2, 5));
}

/// The real server with our client.
class ClientSession
{
public:
    ClientSession()
    {
        bool analysed = false;
        const auto told = QObject::connect(&m_client, &LSPPythonClient::publishDiagnosticsNotification,
                                           [&analysed] { analysed = true; });
        m_client.start(pyrightLanguageServer().toStdWString());
        m_client.didOpen(m_document, LSPLanguageId::Python, 1, text);
        runUntil([&analysed] { return analysed; });
        QObject::disconnect(told);
    }

    void hover()
    {
        LSPHoverMonitor* const monitor = m_client.hover(place(m_document));
        runUntil([monitor] { return monitor->response().has_value(); });
        benchmark::DoNotOptimize(monitor->result());
        delete monitor;
    }

private:
    const QUrl m_document{QStringLiteral("file:///nowhere/hovered.py")};
    LSPPythonClient m_client;
};

/// The same server with a bare socket.
class BareSession
{
public:
    BareSession()
    {
        m_process.startServer(pyrightLanguageServer(), m_listener.port());
        m_socket = std::make_unique<FrameSocket>(m_listener.accept());
        const LSPPythonClient client;
        send(LSPRequestMessage(0, QStringLiteral("initialize"),
                               LSPInitializeParams(static_cast<int>(QCoreApplication::applicationPid()),
                                                   nullptr, client.clientCapabilities())));
        readUntil(R"("id":0,"result")");
        LSPNotificationMessage initialized(QStringLiteral("initialized"));
        initialized.setParams(QJsonObject());
        send(initialized);
        send(LSPNotificationMessage(
            QStringLiteral("textDocument/didOpen"),
            LSPDidOpenTextDocumentParams(LSPTextDocumentItem(m_document, LSPLanguageId::Python, 1, text))));
        readUntil("publishDiagnostics");
    }

    void hover()
    {
        send(LSPRequestMessage(++m_id, QStringLiteral("textDocument/hover"), place(m_document)));
        readUntil("\"id\":" + std::to_string(m_id) + ",\"result\"");
    }

private:
    void send(const LSPMessage& message)
    {
        m_socket->write(
            frameOf(QJsonDocument(message.toJson()).toJson(QJsonDocument::Compact).toStdString()));
    }

    void readUntil(std::string_view mark)
    {
        for (;;) {
            const std::string_view body = m_socket->read();
            if (body.empty() || body.find(mark) != std::string_view::npos)
                return;
            if (body.find("workspace/configuration") == std::string_view::npos)
                continue;
            const QJsonObject request =
                QJsonDocument::fromJson(QByteArray(body.data(), static_cast<int>(body.size()))).object();
            QJsonArray nothing;
            for (std::size_t item = LSPConfigurationRequest(request).configurationParams().items()->size();
                 item > 0; --item)
                nothing.append(QJsonValue::Null);
            send(LSPResponseMessage(LSPRequestMessage(request), nothing));
        }
    }

    const QUrl m_document{QStringLiteral("file:///nowhere/hovered.py")};
    Listener m_listener;
    ServerProcess m_process{nullptr};
    std::unique_ptr<FrameSocket> m_socket;
    int m_id = 0;
};

template <class Session>
std::unique_ptr<Session>& session()
{
    static std::unique_ptr<Session> shared;
    return shared;
}

template <class Session>
void hover(benchmark::State& state)
{
    if (!session<Session>())
        session<Session>() = std::make_unique<Session>();
    for (auto _ : state)
        session<Session>()->hover();
}

} // namespace

void addPyrightBenchmarks()
{
    try {
        pyrightLanguageServer();
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return;
    }
    benchmark::RegisterBenchmark("hover with pyright/halvorin", hover<ClientSession>)->UseRealTime();
    benchmark::RegisterBenchmark("hover with pyright/socket", hover<BareSession>)->UseRealTime();
}

void endPyright()
{
    session<ClientSession>().reset();
    session<BareSession>().reset();
}
