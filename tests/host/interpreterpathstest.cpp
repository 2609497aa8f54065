#include "languageclient/lsppythonclient.h"
#include "languageclient/lspworkspacesettings.h"
#include "languageclient/pythonpathsource.h"
#include "support/python/pythontester.h"

#include <filesystem>

namespace {

using Halvorin::LSP::LSPPythonClient;
using Halvorin::LSP::pythonPathOf;

class InterpreterPaths : public PythonTester
{};

} // namespace

TEST_F(InterpreterPaths, AreThoseOfTheInstallations)
{
    machine.install("3.12", "/other/python3.12");
    EXPECT_EQ(pythonPathOf(QStringLiteral("3.12")), QStringLiteral("/other/python3.12"));
    EXPECT_TRUE(pythonPathOf(QStringLiteral("3.11")).isEmpty());
}

TEST_F(InterpreterPaths, AreEmptyWhenThePluginsCannotBeRead)
{
    machine.install("3.12", "/other/python3.12");
    std::filesystem::create_symlink("plugins", machine.folder / "plugins");
    EXPECT_TRUE(pythonPathOf(QStringLiteral("3.12")).isEmpty());
    EXPECT_THAT(log, testing::HasSubstr("error: python: filesystem error: "));
}

TEST_F(InterpreterPaths, ReachTheSettingsOfTheLanguageClient)
{
    machine.install("3.12", "/other/python3.12");
    store.setForThisRun("python.pythonVersion", "3.12");
    const LSPPythonClient client;
    EXPECT_EQ(client.workspaceSettings()->value(QStringLiteral("python.pythonPath")),
              QJsonValue(QStringLiteral("/other/python3.12")));
}
