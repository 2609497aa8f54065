#include "HostSupport/registry.h"
#include "HostSupport/scripthost.h"
#include "host/hostregistrations.h"
#include "support/process.h"
#include "support/python/pythontester.h"

#include <filesystem>

namespace {

/// The hook does something once in a process: each test runs it in a process of its own.
class LoadPythonHook : public PythonTester
{
protected:
    /// The host starts; then the text that `outcome` gives.
    template <class Outcome>
    std::string afterStart(const Outcome& outcome)
    {
        const int code = runInChild([&] {
            HostSupport::start();
            machine.folder.write("outcome", outcome());
            return 0;
        });
        EXPECT_EQ(code, 0);
        return machine.folder.read("outcome");
    }

    std::string logAfterStart()
    {
        return afterStart([this] { return log; });
    }
};

const std::string* defaultOf(const char* name)
{
    const auto* option = HostSupport::Registry::instance().options().find(name);
    return option ? &option->defaultText : nullptr;
}

} // namespace

TEST_F(LoadPythonHook, LoadsTheDefaultVersionAtTheFirstStart)
{
    machine.setUpOne("3.11", 311);
    EXPECT_EQ(afterStart([this] {
                  return option("python.pythonVersion") + " " + *defaultOf("python.pythonVersion") + " " +
                         (store.stored("python.pythonVersion") ? "stored" : "not stored") + " " +
                         (machine.tries.size() == 2 ? "loaded" : "not loaded");
              }),
              "3.11 3.11 not stored loaded");
}

TEST_F(LoadPythonHook, LoadsNothingOnAMachineWithoutPython)
{
    EXPECT_EQ(logAfterStart(), "");
    EXPECT_EQ(afterStart([this] { return std::to_string(machine.tries.size()); }), "0");
}

TEST_F(LoadPythonHook, DoesNothingASecondTime)
{
    machine.setUpOne("3.11", 311);
    EXPECT_EQ(afterStart([this] {
                  machine.modules.clear();
                  loadPythonHook();
                  HostSupport::runHooks("PostPluginLoad");
                  return std::to_string(machine.searches) + " " + std::to_string(machine.tries.size());
              }),
              "1 2");
}

TEST_F(LoadPythonHook, ReplacesAnUnsupportedVersionAtStartOnly)
{
    machine.setUpOne("3.11", 311);
    sp_WriteOption("python.pythonVersion", "3.14");
    EXPECT_EQ(afterStart([this] {
                  const std::string atStart = option("python.pythonVersion");
                  sp_WriteOption("python.pythonVersion", "3.14");
                  HostSupport::call("PythonDefaults", {"1"});
                  return atStart + " " + option("python.pythonVersion");
              }),
              "3.11 3.14");
}

TEST_F(LoadPythonHook, LoadsBeforeItFillsTheLanguageServer)
{
    machine.setUpOne("3.11", 311);
    machine.servers[machine.installed[0].path] = "/opt/python/bin/pyright-langserver";
    EXPECT_EQ(afterStart([this] {
                  return option("python.languageServer") + " '" + *defaultOf("python.languageServer") + "'";
              }),
              "/opt/python/bin/pyright-langserver ''");
}

TEST_F(LoadPythonHook, LeavesALanguageServerThatIsSet)
{
    machine.setUpOne("3.11", 311);
    machine.servers[machine.installed[0].path] = "/opt/python/bin/pyright-langserver";
    sp_WriteOption("python.languageServer", "/mine");
    EXPECT_EQ(afterStart([this] { return option("python.languageServer"); }), "/mine");
}

TEST_F(LoadPythonHook, AsksTheUserToRestartWhenAPluginIsLoadedAlready)
{
    machine.setUpOne("3.11", 311);
    machine.modules = {"libEmbeddedPython.so"};
    EXPECT_THAT(
        logAfterStart(),
        testing::HasSubstr("warning: python: Restart to Load Python: Restart the application to load the "
                           "new version of Python\n"));
}

TEST_F(LoadPythonHook, LeavesTheApplicationRunningWhenItFails)
{
    std::filesystem::create_symlink("plugins", machine.folder / "plugins");
    EXPECT_THAT(logAfterStart(), testing::StartsWith("error: python: filesystem error: "));
}

TEST_F(LoadPythonHook, RegistersItsOptionsAlsoWhenItFails)
{
    std::filesystem::create_symlink("plugins", machine.folder / "plugins");
    EXPECT_EQ(afterStart([] {
                  const bool both = defaultOf("python.pythonVersion") && defaultOf("python.languageServer");
                  return std::string(both ? "both" : "not both");
              }),
              "both");
}

TEST_F(LoadPythonHook, LeavesTheApplicationRunningWhenNothingCanBeLoaded)
{
    machine.setUpOne("3.11", 311);
    machine.libraries.clear();
    EXPECT_THAT(logAfterStart(), testing::HasSubstr("error: python: Unable to load "));
}
