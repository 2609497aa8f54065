#include "HalvCore/application.h"
#include "HostSupport/optionstore.h"
#include "Python/pythonexecutablemanager.h"
#include "support/environmentvariable.h"
#include "support/fakeprogram.h"
#include "support/process.h"
#include "testpaths.h"

namespace fs = std::filesystem;
using Halvorin::System::FilePath;

namespace {

/// The real machine, but for where its plug-ins are.
class RealMachine : public PythonMachine
{
public:
    FilePath pluginsFolder() override { return folder / "plugins"; }

    TemporaryFolder folder;

private:
    PythonMachineStandIn m_standIn{*this};
};

/// An interpreter with a library of its own, and plug-ins for it. What is loaded stays loaded: each test
/// loads in a process of its own.
class RealLibraries : public testing::Test
{
protected:
    RealLibraries()
    {
        auto& store = HostSupport::OptionStore::instance();
        store.useFile(machine.folder / "options.ini");
        store.setForThisRun("python.userPath",
                            fakeProgram(machine.folder, "root/bin/python9.10", "echo 'Python 9.10.0'"));
        copy(INTERPRETER_LIBRARY, "root/lib");
    }
    ~RealLibraries() override { HostSupport::OptionStore::instance().forgetThisRun(); }

    void copy(const fs::path& file, const fs::path& to) const
    {
        fs::create_directories(machine.folder / to);
        fs::copy_file(file, machine.folder / to / file.filename());
    }

    /// What is logged when the default version is loaded; then whether it is.
    std::string logOfLoading()
    {
        runInChild([this] {
            std::string log;
            Halvorin::System::Application::instance().logger().setOutput(
                [&log](std::string_view line) { log += line; });
            const PythonExecutableManager manager;
            const bool done = manager.load(manager.defaultVersion());
            log += !done ? "failed" : isPythonLoaded() ? "loaded" : "not among the modules";
            machine.folder.write("log", log);
            return 0;
        });
        return machine.folder.read("log");
    }

    RealMachine machine;
    const EnvironmentVariable path{"PATH"};
};

} // namespace

TEST_F(RealLibraries, AreLoadedThoughTheInterpretersLibraryIsOnNoSearchPath)
{
    copy(PLUGIN, "plugins");
    copy(PVX_PLUGIN, "plugins");
    const PythonExecutableManager manager;
    EXPECT_EQ(manager.supportedVersions(), (std::vector<std::string>{"9.10"}));
    EXPECT_EQ(manager.defaultVersion(), "9.10");
    EXPECT_EQ(logOfLoading(), "loaded");
}

TEST_F(RealLibraries, AreNotLoadedWithoutTheInterpretersLibrary)
{
    copy(PLUGIN, "plugins");
    fs::remove_all(machine.folder / "root/lib");
    EXPECT_EQ(logOfLoading(), "error: python: Unable to load " +
                                  (machine.folder / "plugins/EmbeddedPython").native() +
                                  ".\r\n\r\nCheck selected Python version is correctly installed\nfailed");
}

TEST_F(RealLibraries, AreRefusedWhenTheStampIsNotTheVersion)
{
    copy(INCONSISTENT_PLUGIN, "plugins");
    const fs::path marker = machine.folder / "plugins/marker"; // it says that the right version is supported
    fs::copy_file(PLUGIN, marker);
    EXPECT_EQ(
        logOfLoading(),
        "error: python: Python DLL Version stamp is not consistent with binary content. This is a build "
        "problem - head.rc and .pro file both need to store the same version\nfailed");
}

TEST_F(RealLibraries, AreNoneWhereThereIsNoPluginsFolder)
{
    EXPECT_EQ(logOfLoading(), "error: python: unknown python version: \nfailed");
}
