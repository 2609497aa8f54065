#include "languageclient/lspworkspacesettings.h"

#include "languageclient/peer.h"

#include <QSignalSpy>
#include <stdexcept>

using namespace Halvorin::LSP;

namespace {

QString path(const char* text)
{
    return QString::fromUtf8(text);
}

/// The tree as JSON.
std::string tree(const LSPWorkspaceSettings& settings)
{
    return jsonText(settings.value(QString()).toObject());
}

} // namespace

TEST(LSPWorkspaceSettings, GiveTheTreeForTheEmptyPath)
{
    LSPWorkspaceSettings settings;
    EXPECT_TRUE(settings.value(QString()).isObject());
    EXPECT_EQ(tree(settings), "{}");
}

TEST(LSPWorkspaceSettings, MakeTheObjectsOfAPath)
{
    LSPWorkspaceSettings settings;
    settings.setValue(path("python.pythonPath"), path("/usr/bin/python3"));
    EXPECT_EQ(tree(settings), R"({"python":{"pythonPath":"/usr/bin/python3"}})");
    EXPECT_EQ(settings.value(path("python")).toObject(), json(R"({"pythonPath":"/usr/bin/python3"})"));
    settings.setValue(path("python.analysis.depth"), 3);
    EXPECT_EQ(tree(settings), R"({"python":{"analysis":{"depth":3},"pythonPath":"/usr/bin/python3"}})");
}

TEST(LSPWorkspaceSettings, GiveNullBelowAText)
{
    LSPWorkspaceSettings settings;
    settings.setValue(path("a"), path("text"));
    EXPECT_TRUE(settings.value(path("a.b")).isNull());
}

TEST(LSPWorkspaceSettings, GiveNullForWhatIsMissing)
{
    LSPWorkspaceSettings settings;
    settings.setValue(path("a.b"), 1);
    for (const char* missing : {"b", "a.c", "a.b.c", "A", "a.", ".a", ".", "a..b"})
        EXPECT_TRUE(settings.value(path(missing)).isNull()) << missing;
}

TEST(LSPWorkspaceSettings, KeepTheEmptyPartsOfAPath)
{
    LSPWorkspaceSettings settings;
    settings.setValue(path("a..b"), 1);
    EXPECT_EQ(tree(settings), R"({"a":{"":{"b":1}}})");
    EXPECT_EQ(settings.value(path("a..b")), QJsonValue(1));
}

TEST(LSPWorkspaceSettings, ReplaceAValueInTheWayByAnObject)
{
    LSPWorkspaceSettings settings;
    settings.setValue(path("a.b"), 1);
    settings.setValue(path("a.b.c"), 2);
    EXPECT_EQ(tree(settings), R"({"a":{"b":{"c":2}}})");
}

TEST(LSPWorkspaceSettings, AreEmptiedByAValueThatIsNoObject)
{
    LSPWorkspaceSettings settings;
    settings.setValue(path("a"), 1);
    settings.setValue(QString(), 5);
    EXPECT_EQ(tree(settings), "{}");
}

TEST(LSPWorkspaceSettings, AreReplacedByAnObjectAtTheEmptyPath)
{
    LSPWorkspaceSettings settings;
    settings.setValue(path("a"), 1);
    settings.setValue(QString(), json(R"({"b":2})"));
    EXPECT_EQ(tree(settings), R"({"b":2})");
}

TEST(LSPWorkspaceSettings, SayWhatTheTreeIsAfterEachChange)
{
    LSPWorkspaceSettings settings;
    QSignalSpy changes(&settings, &LSPWorkspaceSettings::settingsChanged);
    settings.setValue(path("a"), 1);
    settings.setValue(path("a"), 1);
    ASSERT_EQ(changes.size(), 2);
    EXPECT_EQ(changes.at(1).at(0).toJsonObject(), json(R"({"a":1})"));
}

TEST(LSPWorkspaceSettings, RefuseAPathThatIsTooDeep)
{
    LSPWorkspaceSettings settings;
    settings.setValue(QStringLiteral("a"), 1);
    EXPECT_THROW(settings.setValue(QString(100'000, QLatin1Char('.')), 1), std::length_error);
    EXPECT_EQ(tree(settings), R"({"a":1})");
    settings.setValue(QString(499, QLatin1Char('.')), 1);
    EXPECT_EQ(settings.value(QString(499, QLatin1Char('.'))), QJsonValue(1));
}
