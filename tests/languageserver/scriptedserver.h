#ifndef SCRIPTEDSERVER_H
#define SCRIPTEDSERVER_H

#include "support/temporaryfolder.h"

#include <QJsonObject>
#include <QString>
#include <QStringList>

#include <vector>

/// A language server that does what a scenario says, for a client that knows no more of a server than the
/// path of its program. README.md beside this file has the table of steps.
///
///     ScriptedServer server(R"({"on": {"textDocument/hover": [{"respond": {"result": null}}]}})");
///     client.start(server.program().toStdWString(), false);
///     ASSERT_TRUE(server.waitForMessage(QStringLiteral("initialized")));
///
/// The test needs a QCoreApplication. Several servers, each with its scenario, can run at once. Each start of
/// the program plays the scenario anew, into the same log.
class ScriptedServer
{
public:
    /// A server of this scenario, in which "log" is set here; one that behaves well when there is none.
    /// Throws std::invalid_argument for a text that is no JSON object.
    explicit ScriptedServer(const QByteArray& scenario = "{}");
    explicit ScriptedServer(const QJsonObject& scenario);
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    /// Ends what still runs of it.
    ~ScriptedServer();

    /// What a client starts with --socket=PORT. The scenario goes with it, the environment is left alone.
    QString program() const;

    /// What the server wrote down until now, in order.
    std::vector<QJsonObject> log() const;
    /// The entries of one event, such as "connected", "received", "closed" or "exit".
    std::vector<QJsonObject> events(const QString& event) const;

    /// The messages that the server received, in order, and what their methods are; a response has none: "".
    std::vector<QJsonObject> received() const;
    std::vector<QJsonObject> received(const QString& method) const;
    QStringList receivedMethods() const;

    /// Runs the event loop until the log has so many entries of an event, or messages of a method. False when
    /// they do not come within a time that is far beyond need.
    bool waitForEvent(const QString& event, std::size_t count = 1) const;
    bool waitForMessage(const QString& method, std::size_t count = 1) const;

    /// Lets a server go on that stands at the step "await" with this name.
    void letGoOn(const QString& name) const;

    /// The processes of this server, and those that it spawned, that have not ended.
    std::vector<qint64> running() const;

private:
    TemporaryFolder m_folder;
};

#endif
