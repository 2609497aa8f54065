#ifndef SERVEDCLIENT_H
#define SERVEDCLIENT_H

#include "languageclient/testclient.h"
#include "languageserver/scriptedserver.h"
#include "support/qtcore/hostlog.h"

#include <QPointer>
#include <QTest>
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

inline bool waitFor(const std::function<bool()>& condition)
{
    return QTest::qWaitFor(condition, 60'000); // far beyond need
}

/// A client that has started a scripted server, and what the client tells of it. Whatever happened to the
/// two, nothing of the server is left when the client is gone.
class ServedClient
{
public:
    using Statuses = std::vector<Halvorin::LSP::LSPClientStatus>;

    explicit ServedClient(const QByteArray& scenario = "{}") : server(scenario), client(new TestClient)
    {
        QObject::connect(client, &TestClient::statusChanged,
                         [this](Halvorin::LSP::LSPClientStatus status) { statuses.push_back(status); });
        QObject::connect(client, &TestClient::showMessage,
                         [this](Halvorin::LSP::LSPMessageType, const QString& message) {
                             shown.push_back(message.toStdString());
                         });
        QObject::connect(client, &TestClient::serverDisconnected, [this] { ++disconnections; });
        client->start(server.program().toStdWString());
    }
    ServedClient(const ServedClient&) = delete;
    ServedClient& operator=(const ServedClient&) = delete;
    ~ServedClient()
    {
        delete client;
        EXPECT_TRUE(serverIsGone());
    }

    bool reaches(Halvorin::LSP::LSPClientStatus status) const
    {
        return waitFor([&] { return !client || client->status() == status; }) && client;
    }

    bool serverIsGone() const
    {
        return waitFor([this] { return server.running().empty(); });
    }

    Halvorin::LSP::LSPHoverMonitor* askForHover() const
    {
        using namespace Halvorin::LSP;
        const LSPTextDocumentIdentifier document(QUrl(QStringLiteral("file:///a.py")));
        return client->hover(LSPHoverParams(document, LSPPosition(1, 2)));
    }

    /// What the server answers to a hover: shows that both still understand each other.
    std::string hoverText() const
    {
        Halvorin::LSP::LSPHoverMonitor* const monitor = askForHover();
        if (!waitFor([monitor] { return monitor->response().has_value(); }))
            return "no answer";
        const QJsonObject result = monitor->response()->toJson().value(QLatin1String("result")).toObject();
        monitor->deleteLater();
        return result.value(QLatin1String("contents"))
            .toObject()
            .value(QLatin1String("value"))
            .toString()
            .toStdString();
    }

    HostLog log;
    ScriptedServer server;
    QPointer<TestClient> client;
    Statuses statuses;
    std::vector<std::string> shown;
    int disconnections = 0;
};

/// What hoverText() is with a server that behaves well.
inline constexpr auto usualHover = "a hover text";

#endif
