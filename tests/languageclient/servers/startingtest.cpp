#include "languageclient/peer.h"
#include "servedclient.h"

#include <QFile>
#include <QProcess>
#include <filesystem>

using namespace Halvorin::LSP;
using enum LSPClientStatus;

namespace {

/// A client that was told to start what cannot be started knows of no server, and goes at once.
void expectNoServer(const std::filesystem::path& program)
{
    QPointer<TestClient> client = new TestClient;
    client->start(program.wstring());
    client->didOpen(QUrl(QStringLiteral("file:///a.py")), LSPLanguageId::Python, 1, QString());
    QTest::qWait(50);
    EXPECT_EQ(client->status(), NotConnected);
    {
        Peer peer(*client); // another server may still come
        peer.shakeHands();
        EXPECT_EQ(peer.next().value(QLatin1String("method")), QLatin1String("textDocument/didOpen"));
    }
    client->deleteLater();
    QCoreApplication::sendPostedEvents(client, QEvent::DeferredDelete);
    EXPECT_FALSE(client);
}

} // namespace

TEST(Starting, OfAProgramThatDoesNotExistLeavesTheClientAlone)
{
    expectNoServer("/nowhere/server");
    expectNoServer("");
}

TEST(Starting, OfAFileThatIsNoProgramLeavesTheClientAlone)
{
    const TemporaryFolder folder;
    expectNoServer(folder.path());
    expectNoServer(folder.write("text", "no program"));
    const auto marked = folder.write("marked", "\x7F"
                                               "ELF but no program either");
    std::filesystem::permissions(marked, std::filesystem::perms::owner_all);
    expectNoServer(marked);
}

TEST(Starting, TellsTheServerThePortAndNothingElse)
{
    const ServedClient served;
    ASSERT_TRUE(served.reaches(Ready));
    EXPECT_EQ(served.server.events(QStringLiteral("started")).at(0).value(QLatin1String("arguments")),
              QJsonArray{QStringLiteral("--socket=%1").arg(portOf(*served.client))});
}

TEST(Starting, FindsAServerWhoseWidePathHasBlanksAndLettersOfAllKinds)
{
    const ScriptedServer server;
    const TemporaryFolder folder;
    const std::wstring name = L"Gr\u00FC\u00DFe an \u65E5\u672C \U0001F40D's \"server\"";
    const QString program =
        QString::fromStdString((folder.path()).string()) + QLatin1Char('/') + QString::fromStdWString(name);
    ASSERT_TRUE(QFile::link(server.program(), program));
    TestClient client;
    client.start(program.toStdWString());
    EXPECT_TRUE(waitFor([&client] { return client.status() == Ready; }));
}

TEST(Starting, OfAnExternalServerStartsNothing)
{
    const ScriptedServer server;
    TestClient client;
    client.start(server.program().toStdWString(), true);
    QTest::qWait(50);
    EXPECT_TRUE(server.log().empty());
    EXPECT_EQ(client.findChild<QProcess*>(), nullptr);

    QProcess external;
    external.start(server.program(), {QStringLiteral("--socket=%1").arg(portOf(client))});
    EXPECT_TRUE(waitFor([&client] { return client.status() == Ready; }));
    external.kill();
    EXPECT_TRUE(external.waitForFinished());
}

TEST(Starting, AnotherServerTakesThePlaceOfTheFirst)
{
    const ServedClient served(R"({"start": [{"hang": true}]})");
    ASSERT_TRUE(served.server.waitForEvent(QStringLiteral("hanging")));
    const ScriptedServer other;
    const auto* first = served.client->findChild<QProcess*>();
    served.client->start(other.program().toStdWString());
    ASSERT_TRUE(served.reaches(LSPClientStatus::Ready));
    delete first; // its end is not that of the server
    EXPECT_EQ(served.client->status(), LSPClientStatus::Ready);
    EXPECT_EQ(served.hoverText(), usualHover);
    delete served.client;
    EXPECT_TRUE(waitFor([&other] { return other.running().empty(); }));
}
