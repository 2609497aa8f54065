#include "Python/pythonexecutablemanager.h"

#include "support/python/pythontester.h"

#include <filesystem>

namespace fs = std::filesystem;

namespace {

using Versions = std::vector<std::string>;

class PythonManager : public PythonTester
{
protected:
    static Versions known(const PythonExecutableManager& manager)
    {
        Versions versions;
        for (const PythonExecutable& executable : manager.executables())
            versions.push_back(executable.version);
        return versions;
    }
};

} // namespace

TEST_F(PythonManager, KnowsNoVersionOnAMachineWithoutPython)
{
    const PythonExecutableManager manager;
    EXPECT_TRUE(manager.executables().empty());
    EXPECT_EQ(manager.usableVersions(), Versions{});
    EXPECT_EQ(manager.supportedVersions(), Versions{});
    EXPECT_EQ(manager.defaultVersion(), "");
    EXPECT_EQ(manager.defaultLanguageServer(), L"");
    EXPECT_EQ(manager.pythonPath("3.11"), L"");
    EXPECT_EQ(log, "");
}

TEST_F(PythonManager, KeepsTheFirstInstallationOfEachVersionInTheOrderOfDiscovery)
{
    machine.install("3.12", "/first");
    machine.install("3.11", "/second");
    machine.install("3.12", "/third");
    const PythonExecutableManager manager;
    EXPECT_EQ(known(manager), (Versions{"3.12", "3.11"}));
    EXPECT_EQ(manager.pythonPath("3.12"), L"/first");
    EXPECT_EQ(log, "diagnostic: python: Found Python installation, version: 3.12\n"
                   "diagnostic: python: Found Python installation, version: 3.11\n");
}

TEST_F(PythonManager, TakesInstallationsOfPythonCoreBeforeThoseOfOthers)
{
    machine.install("3.10", "/other/3.10", L"Other");
    machine.install("3.11", "/other/3.11", L"Other");
    machine.install("3.11", "/core/3.11");
    machine.install("3.12", "/core/3.12");
    const PythonExecutableManager manager;
    EXPECT_EQ(known(manager), (Versions{"3.11", "3.12", "3.10"}));
    EXPECT_EQ(manager.pythonPath("3.11"), L"/core/3.11");
}

TEST_F(PythonManager, PassesOverAnInstallationWhoseVersionCannotBeTold)
{
    machine.install("", "/silent");
    EXPECT_TRUE(PythonExecutableManager().executables().empty());
}

TEST_F(PythonManager, LooksAtNothingElseWhenTheUserNamesAnInterpreter)
{
    machine.install("3.12", "/installed");
    machine.versions["/mine/python3"] = "3.11";
    store.setForThisRun("python.userPath", "/mine/python3");
    const PythonExecutableManager manager;
    EXPECT_EQ(machine.searches, 0);
    EXPECT_EQ(known(manager), (Versions{"3.11"}));
    EXPECT_EQ(manager.pythonPath("3.11"), L"/mine/python3");
    EXPECT_EQ(log, "diagnostic: python: Using Python user path, version: 3.11\n");
}

TEST_F(PythonManager, WarnsOfAnInterpreterOfTheUsersThatHasNoVersion)
{
    machine.install("3.12", "/installed");
    store.setForThisRun("python.userPath", "/mine/python3");
    EXPECT_TRUE(PythonExecutableManager().executables().empty());
    EXPECT_EQ(machine.searches, 0);
    EXPECT_EQ(log, "warning: python: no Python version can be told of '/mine/python3', which the option "
                   "python.userPath names\n");
}

TEST_F(PythonManager, KeepsThePathOfAnInterpreterWhateverItsBytes)
{
    const std::string mine = "/mine/caf\xe9/python3";
    machine.versions[mine] = "3.11";
    store.setForThisRun("python.userPath", mine);
    EXPECT_EQ(FilePath(PythonExecutableManager().pythonPath("3.11")), FilePath(mine));
}

TEST_F(PythonManager, FindsTheLanguageServersOfInterpreters)
{
    machine.install("3.11", "/a/python3.11");
    machine.install("3.12", "/b/python3.12");
    machine.servers["/b/python3.12"] = "/b/pyright-langserver";
    const PythonExecutableManager manager;
    EXPECT_EQ(manager.find("3.11")->languageServer, L"");
    EXPECT_EQ(manager.find("3.12")->languageServer, L"/b/pyright-langserver");
    EXPECT_THAT(log, testing::EndsWith("diagnostic: python: Version 3.12 language server found\n"));
    EXPECT_THAT(log, testing::Not(testing::HasSubstr("Version 3.11 language server")));
}

TEST_F(PythonManager, FindsPluginsInEveryFolderBelowThePluginsFolder)
{
    machine.install("3.11", "/a");
    machine.addPlugin("deep/er/some.file", "3.11");
    machine.addPlugin("other", "3.14");
    machine.addPlugin("readme.txt", "");
    fs::create_directory(machine.folder / "plugins/empty");
    const PythonExecutableManager manager;
    EXPECT_THAT(manager.supportedVersions(), testing::UnorderedElementsAre("3.11", "3.14"));
    EXPECT_EQ(manager.usableVersions(), (Versions{"3.11"}));
    EXPECT_EQ(manager.find("3.14")->pythonPath, L"");
    EXPECT_THAT(log, testing::HasSubstr("diagnostic: python: Version 3.11 supported\n"));
    EXPECT_THAT(log, testing::HasSubstr("diagnostic: python: Version 3.14 supported\n"));
}

TEST_F(PythonManager, RaisesAnErrorOfTheFileSystem)
{
    fs::create_symlink("plugins", machine.folder / "plugins"); // a circle
    EXPECT_THROW(PythonExecutableManager(), fs::filesystem_error);
}

TEST_F(PythonManager, MakesTheChosenVersionTheDefaultIfItIsInstalledAndSupported)
{
    machine.install("3.11", "/a");
    machine.install("3.12", "/b");
    machine.install("3.13", "/c");
    machine.addPlugin("a", "3.11");
    machine.addPlugin("b", "3.12");
    machine.addPlugin("d", "3.14");
    for (const auto& [chosen, expected] : {std::pair("3.11", "3.11"),
                                           {"3.12", "3.12"},
                                           {"3.13", "3.12"},
                                           {"3.14", "3.12"},
                                           {"3.1", "3.12"},
                                           {"", "3.12"},
                                           {"x", "3.12"}}) {
        store.setForThisRun("python.pythonVersion", chosen);
        EXPECT_EQ(PythonExecutableManager().defaultVersion(), expected) << chosen;
    }
}

TEST_F(PythonManager, TakesTheDefaultVersionWithTheHighestDecimalNumber)
{
    for (const char* version : {"3.10", "3.9", "3.12"}) {
        machine.install(version, std::string("/") + version);
        machine.addPlugin(version, version);
    }
    EXPECT_EQ(PythonExecutableManager().defaultVersion(), "3.9");
}

TEST_F(PythonManager, GivesTheLanguageServerOfTheDefaultVersion)
{
    machine.install("3.11", "/a");
    machine.install("3.12", "/b");
    machine.addPlugin("a", "3.11");
    machine.servers["/a"] = "/a-server";
    machine.servers["/b"] = "/b-server";
    EXPECT_EQ(PythonExecutableManager().defaultLanguageServer(), L"/a-server");
}

TEST_F(PythonManager, IsLoadedWhenThePluginIsAmongTheModules)
{
    for (const char* module :
         {"libPVXEmbeddedPython.so", "libEmbeddedPythonic.so", "libpython3.11.so.1.0", ""}) {
        machine.modules = {module};
        EXPECT_FALSE(isPythonLoaded()) << module;
    }
    for (const char* module : {"libEmbeddedPython.so", "EmbeddedPython.dll"}) {
        machine.modules = {"libc.so.6", module};
        EXPECT_TRUE(isPythonLoaded()) << module;
    }
}
