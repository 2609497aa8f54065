#include "Python/pythonexecutablemanager.h"
#include "Python/pythonpathreceiver.h"
#include "support/python/pythontester.h"

namespace {

using Tries = std::vector<std::string>;

class PythonLoad : public PythonTester
{
protected:
    ~PythonLoad() override { setPythonPathReceiver({}); }

    /// Loads a version, and keeps only what that logs.
    bool load(const std::string& version)
    {
        const PythonExecutableManager manager;
        log.clear();
        return manager.load(version);
    }

    std::string pluginPath(const std::string& name) { return machine.folder / "plugins" / name; }
};

constexpr auto inconsistent = "error: python: Python DLL Version stamp is not consistent with binary "
                              "content. This is a build problem - "
                              "head.rc and .pro file both need to store the same version\n";

} // namespace

TEST_F(PythonLoad, LoadsBothPluginsInTheirOrder)
{
    machine.setUpOne("3.11", 311);
    EXPECT_TRUE(load("3.11"));
    EXPECT_EQ(machine.tries, (Tries{"EmbeddedPython with /usual", "PVXEmbeddedPython with /usual"}));
    EXPECT_TRUE(isPythonLoaded());
    EXPECT_EQ(log, "");
}

TEST_F(PythonLoad, LeavesPathAloneUnlessALoadFailed)
{
    machine.setUpOne("3.11", 311);
    EXPECT_TRUE(load("3.11"));
    EXPECT_EQ(path.value(), "/usual");
}

TEST_F(PythonLoad, PutsTheInterpretersFolderOnPathForASecondTry)
{
    machine.setUpOne("3.11", 311);
    machine.libraries["EmbeddedPython"].failures = 1;
    EXPECT_TRUE(load("3.11"));
    EXPECT_EQ(machine.tries, (Tries{"EmbeddedPython with /usual", "EmbeddedPython with /opt/python/bin",
                                    "PVXEmbeddedPython with /opt/python/bin"}));
    EXPECT_EQ(path.value(), "/opt/python/bin:/usual");
}

TEST_F(PythonLoad, LoadsTheInterpretersLibraryBeforeTheSecondTry)
{
    machine.setUpOne("3.11", 311);
    machine.needed = {"/opt/python/lib/libpython3.11.so.1.0"};
    machine.libraries["EmbeddedPython"].failures = 1;
    EXPECT_TRUE(load("3.11"));
    EXPECT_EQ(machine.tries,
              (Tries{"EmbeddedPython with /usual", "libpython3.11.so.1.0 with /opt/python/bin",
                     "EmbeddedPython with /opt/python/bin", "PVXEmbeddedPython with /opt/python/bin"}));
}

TEST_F(PythonLoad, MakesAPathWhereThereIsNone)
{
    machine.setUpOne("3.11", 311);
    machine.libraries["EmbeddedPython"].failures = 1;
    ::setenv("PATH", "", 1);
    EXPECT_TRUE(load("3.11"));
    EXPECT_EQ(path.value(), "/opt/python/bin");
}

TEST_F(PythonLoad, GivesUpAfterTwoTries)
{
    machine.setUpOne("3.11", 311);
    machine.libraries["EmbeddedPython"].failures = 2;
    EXPECT_FALSE(load("3.11"));
    EXPECT_EQ(machine.tries.size(), 2);
    EXPECT_EQ(log, "diagnostic: python: it fails\ndiagnostic: python: it fails\n"
                   "error: python: Unable to load " +
                       pluginPath("EmbeddedPython") +
                       ".\r\n\r\nCheck selected Python version is correctly installed\n");
}

TEST_F(PythonLoad, TriesOnceWithoutAnInterpreter)
{
    machine.addPlugin("EmbeddedPython", "3.11");
    EXPECT_FALSE(load("3.11"));
    EXPECT_EQ(machine.tries, (Tries{"EmbeddedPython with /usual"}));
    EXPECT_EQ(path.value(), "/usual");
    EXPECT_THAT(log, testing::HasSubstr("error: python: Unable to load "));
}

TEST_F(PythonLoad, ReportsTheSecondPluginToo)
{
    machine.setUpOne("3.11", 311);
    machine.libraries.erase("PVXEmbeddedPython");
    EXPECT_FALSE(load("3.11"));
    EXPECT_THAT(log,
                testing::HasSubstr("error: python: Unable to load " + pluginPath("PVXEmbeddedPython") + "."));
}

TEST_F(PythonLoad, RefusesAPluginWhoseStampIsNotItsVersion)
{
    for (const int number : {310, 312, 0, -1, 3011}) {
        machine.modules.clear();
        machine.setUpOne("3.11", number);
        EXPECT_FALSE(load("3.11")) << number;
        EXPECT_EQ(log, inconsistent);
    }
}

TEST_F(PythonLoad, RefusesASecondPluginWhoseStampIsNotItsVersion)
{
    machine.setUpOne("3.11", 311);
    machine.libraries["PVXEmbeddedPython"].version = 312;
    EXPECT_FALSE(load("3.11"));
    EXPECT_EQ(log, inconsistent);
}

TEST_F(PythonLoad, RefusesAPluginWithAVersionAndWithoutAStamp)
{
    machine.setUpOne("3.11", 311);
    machine.addPlugin("EmbeddedPython", "");
    EXPECT_FALSE(load("3.11"));
    EXPECT_EQ(log, inconsistent);
}

TEST_F(PythonLoad, TakesAPluginThatDoesNotTellItsVersion)
{
    machine.setUpOne("3.11", 311);
    machine.libraries["EmbeddedPython"].version.reset();
    EXPECT_TRUE(load("3.11"));
}

TEST_F(PythonLoad, RefusesWhatItDoesNotKnow)
{
    machine.setUpOne("3.11", 311);
    EXPECT_FALSE(load("3.14"));
    EXPECT_EQ(log, "error: python: unknown python version: 3.14\n");
    EXPECT_EQ(machine.tries, Tries{});
}

TEST_F(PythonLoad, RefusesASecondTime)
{
    machine.setUpOne("3.11", 311);
    EXPECT_TRUE(load("3.11"));
    machine.tries.clear();
    EXPECT_FALSE(load("3.14"));
    EXPECT_EQ(log, "error: python: Python version will change after application restart.\n");
    EXPECT_EQ(machine.tries, Tries{});
}

TEST_F(PythonLoad, TellsTheReceiverTheInterpreterBeforeAnythingIsLoaded)
{
    machine.setUpOne("3.11", 311);
    std::vector<std::string> received;
    setPythonPathReceiver([&](const FilePath& interpreter) {
        EXPECT_EQ(machine.tries, Tries{});
        received.push_back(interpreter.toString().toLegacyUtf8());
    });
    load("3.14");
    EXPECT_TRUE(received.empty());
    load("3.11");
    load("3.11"); // it is loaded already
    EXPECT_EQ(received, (std::vector<std::string>{"/opt/python/bin/python3.11"}));
}

TEST_F(PythonLoad, ReportsWhatTheReceiverRaises)
{
    machine.setUpOne("3.11", 311);
    setPythonPathReceiver([](const FilePath&) { throw std::runtime_error("the reason"); });
    EXPECT_FALSE(load("3.11"));
    EXPECT_EQ(log, "error: python: the reason\n");
}
