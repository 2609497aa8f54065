#include "Python/pythonstart.h"

#include "support/python/pythontester.h"

namespace {

class PythonStart : public PythonTester
{
protected:
    void start()
    {
        const PythonExecutableManager manager;
        log.clear();
        loadChosenPython(manager, [this](const std::string& title, const std::string& text) {
            shown.push_back(title + ": " + text);
        });
    }

    std::vector<std::string> shown;
};

} // namespace

TEST_F(PythonStart, LoadsTheChosenVersion)
{
    machine.setUpOne("3.11", 311);
    store.setForThisRun("python.pythonVersion", "3.11");
    start();
    EXPECT_EQ(log, "diagnostic: python: Loading Python version 3.11\n");
    EXPECT_TRUE(isPythonLoaded());
    EXPECT_TRUE(shown.empty());
    EXPECT_FALSE(store.stored("python.languageServer"));
}

TEST_F(PythonStart, ReplacesAVersionThatIsNotSupported)
{
    machine.setUpOne("3.11", 311);
    machine.install("3.12", "/no/plugin");
    sp_WriteOption("python.pythonVersion", "3.12");
    start();
    EXPECT_EQ(option("python.pythonVersion"), "3.11");
    EXPECT_EQ(log, "diagnostic: python: Loading Python version 3.11\n");
}

TEST_F(PythonStart, ReplacesAVersionThatIsNotInstalled)
{
    machine.setUpOne("3.11", 311);
    machine.addPlugin("other", "3.12");
    sp_WriteOption("python.pythonVersion", "3.12");
    start();
    EXPECT_EQ(option("python.pythonVersion"), "3.11");
    EXPECT_TRUE(isPythonLoaded());
}

TEST_F(PythonStart, ReplacesNoVersionByNone)
{
    machine.install("3.12", "/no/plugin");
    sp_WriteOption("python.pythonVersion", "3.12");
    start();
    EXPECT_EQ(option("python.pythonVersion"), "3.12");
    EXPECT_TRUE(machine.tries.empty());
    EXPECT_EQ(log, "");
}

TEST_F(PythonStart, LoadsNothingOnAMachineWithoutPython)
{
    start();
    EXPECT_TRUE(machine.tries.empty());
    EXPECT_TRUE(shown.empty());
    EXPECT_EQ(log, "");
}

TEST_F(PythonStart, LoadsNothingWhenTheOptionIsEmpty)
{
    machine.setUpOne("3.11", 311);
    store.setForThisRun("python.pythonVersion", "");
    start();
    EXPECT_TRUE(machine.tries.empty());
    EXPECT_EQ(log, "");
}

TEST_F(PythonStart, AsksTheUserToRestartWhenAPluginIsLoadedAlready)
{
    machine.setUpOne("3.11", 311);
    machine.modules = {"libEmbeddedPython.so"};
    store.setForThisRun("python.pythonVersion", "3.11");
    start();
    EXPECT_EQ(shown,
              (std::vector<std::string>{
                  "Restart to Load Python: Restart the application to load the new version of Python"}));
    EXPECT_TRUE(machine.tries.empty());
    EXPECT_EQ(log, "");
}

TEST_F(PythonStart, FillsOptionsThatAreEmptyAndNoOthers)
{
    machine.setUpOne("3.11", 311);
    machine.servers[machine.installed[0].path] = "/opt/python/bin/pyright-langserver";
    const PythonExecutableManager manager;
    fillPythonVersion(manager);
    fillLanguageServer(manager);
    EXPECT_EQ(option("python.pythonVersion"), "3.11");
    EXPECT_EQ(option("python.languageServer"), "/opt/python/bin/pyright-langserver");

    sp_WriteOption("python.pythonVersion", "3.14");
    sp_WriteOption("python.languageServer", "mine");
    fillPythonVersion(manager);
    fillLanguageServer(manager);
    EXPECT_EQ(option("python.pythonVersion"), "3.14");
    EXPECT_EQ(option("python.languageServer"), "mine");
}

TEST_F(PythonStart, FillsNothingWithAnEmptyDefault)
{
    const PythonExecutableManager manager;
    fillPythonVersion(manager);
    fillLanguageServer(manager);
    EXPECT_FALSE(store.stored("python.pythonVersion"));
    EXPECT_FALSE(store.stored("python.languageServer"));
}
