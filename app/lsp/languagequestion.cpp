#include "lsp/languagequestion.h"

#include "languageclient/lspabstractclient.h"

#include <QEventLoop>
#include <QJsonObject>
#include <QPointer>
#include <QProcess>
#include <QTimer>
#include <optional>
#include <stdexcept>

using namespace Halvorin::LSP;

namespace {

/// What a server has to end in when it was asked to.
constexpr std::chrono::seconds timeToEnd(5);

/// Waits for one answer, or for what makes it impossible.
class Conversation
{
public:
    Conversation(LSPAbstractClient& client, std::chrono::milliseconds patience) : m_client(client)
    {
        QObject::connect(&client, &LSPAbstractClient::serverDisconnected, &m_scope,
                         [this] { fail("the language server is gone"); });
        QObject::connect(&client, &LSPAbstractClient::statusChanged, &m_scope,
                         [this](LSPClientStatus status) {
                             if (status == LSPClientStatus::Exited)
                                 fail("the language server is gone");
                         });
        QObject::connect(&client, &LSPAbstractClient::messageSent, &m_scope,
                         [this](const QJsonDocument& message) { watchHandshake(message.object()); });
        QObject::connect(&client, &LSPAbstractClient::responseReceived, &m_scope,
                         [this](const LSPResponseMessage& response) { lookForRefusal(response); });
        QTimer::singleShot(patience, &m_scope, [this, patience] {
            fail("no answer of the language server within " + std::to_string(patience.count()) + " ms");
        });
    }

    /// The client itself says nothing of a program that cannot be run.
    void watchStart()
    {
        const auto* process = m_client.findChild<QProcess*>();
        if (process == nullptr)
            return;
        QObject::connect(
            process, &QProcess::errorOccurred, &m_scope, [this, process](QProcess::ProcessError error) {
                if (error == QProcess::FailedToStart)
                    fail("the language server cannot be run: " + process->errorString().toStdString());
            });
        if (process->state() == QProcess::NotRunning)
            fail("the language server cannot be run: " + process->errorString().toStdString());
    }

    void ask(const LanguageQuestion& question)
    {
        const LSPTextDocumentIdentifier document(question.document);
        const LSPPosition position(question.place.line, question.place.character);
        m_client.didOpen(question.document, LSPLanguageId::Python, 1, question.text);
        switch (question.kind) {
        case LanguageQuestion::Kind::completion:
            return awaitAnswer(m_client.completion(LSPCompletionParams(document, position)));
        case LanguageQuestion::Kind::hover:
            return awaitAnswer(m_client.hover(LSPHoverParams(document, position)));
        case LanguageQuestion::Kind::signature:
            return awaitAnswer(m_client.signatureHelp(LSPSignatureHelpParams(document, position)));
        case LanguageQuestion::Kind::diagnostics:
            QObject::connect(&m_client, &LSPAbstractClient::publishDiagnosticsNotification, &m_scope,
                             [this, document = question.document.toLocalFile()](
                                 const LSPPublishDiagnosticsNotification& notification) {
                                 const LSPPublishDiagnosticsParams params = notification.diagnosticsParams();
                                 if (params.uri().toLocalFile() ==
                                     document) // the server may speak of others, too
                                     succeed(params.toJson().value(QLatin1String("diagnostics")));
                             });
        }
    }

    /// Runs an event loop until it is clear what comes out.
    QJsonValue answer()
    {
        if (!m_answer && m_failure.empty())
            m_loop.exec();
        if (!m_answer)
            throw std::runtime_error(m_failure);
        return *m_answer;
    }

private:
    template <class Monitor>
    void awaitAnswer(Monitor* monitor)
    {
        QObject::connect(monitor, &Monitor::responseReady, &m_scope, [this, monitor] {
            try {
                monitor->result();
                succeed(monitor->response()->toJson().value(QLatin1String("result")));
            } catch (const std::exception& error) {
                fail(std::string("the language server answered: ") + error.what());
            }
        });
    }

    /// The client logs why a handshake fails, and waits for ever.
    void watchHandshake(const QJsonObject& sent)
    {
        if (sent.value(QLatin1String("method")) == QLatin1String("initialize"))
            m_initializeId = sent.value(QLatin1String("id"));
    }

    void lookForRefusal(const LSPResponseMessage& response)
    {
        if (response.toJson().value(QLatin1String("id")) != m_initializeId)
            return;
        QTimer::singleShot(0, &m_scope, [this, response] { // when the client has looked at it, too
            if (m_client.status() != LSPClientStatus::Initializing)
                return;
            const auto error = response.error();
            fail("the language server refused: " +
                 (error ? error->message().toStdString() : std::string("it does not say what it can do")));
        });
    }

    void succeed(const QJsonValue& answer)
    {
        m_answer = answer;
        m_loop.quit();
    }

    void fail(const std::string& failure)
    {
        if (m_failure.empty())
            m_failure = failure;
        m_loop.quit();
    }

    LSPAbstractClient& m_client;
    QObject m_scope; // the connections live as long as the conversation
    QEventLoop m_loop;
    QJsonValue m_initializeId = QJsonValue::Undefined;
    std::optional<QJsonValue> m_answer;
    std::string m_failure;
};

/// Sends the server home and waits until it is gone; one that does not go is ended.
class Farewell
{
public:
    explicit Farewell(std::unique_ptr<LSPAbstractClient> client) : m_client(client.release()) {}
    Farewell(const Farewell&) = delete;
    Farewell& operator=(const Farewell&) = delete;

    ~Farewell()
    {
        QEventLoop loop;
        QObject::connect(m_client, &QObject::destroyed, &loop, &QEventLoop::quit);
        QTimer::singleShot(timeToEnd, &loop, &QEventLoop::quit);
        m_client->deleteLater();
        loop.exec();
        delete m_client; // null when it has gone
    }

    LSPAbstractClient& client() { return *m_client; }

private:
    QPointer<LSPAbstractClient> m_client;
};

} // namespace

QJsonValue askLanguageServer(std::unique_ptr<LSPAbstractClient> client, const std::wstring& program,
                             const LanguageQuestion& question, std::chrono::milliseconds patience)
{
    Farewell farewell(std::move(client));
    Conversation conversation(farewell.client(), patience);
    farewell.client().start(program);
    conversation.watchStart();
    conversation.ask(question);
    return conversation.answer();
}
