#include "embeddedpython.h"

#include "HostSupport/options.h"
#include "HostSupport/optionstore.h"
#include "Python/pythonexecutablemanager.h"
#include "Python/pythonplugins.h"
#include "pvxembeddedpython.h"
#include "support/environmentvariable.h"
#include "support/temporaryfolder.h"

#include <array>
#include <csignal>
#include <dlfcn.h>
#include <thread>

namespace {

/// The real plug-ins, loaded for the real interpreter.
class EmbeddedPython : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        const TemporaryFolder folder;
        HostSupport::OptionStore::instance().useFile(folder / "options.ini");
        const PythonExecutableManager manager;
        wasLoaded = isPythonLoaded();
        version = manager.defaultVersion();
        hasLoaded = manager.load(version);
    }

    template <class Function>
    static Function* resolved(const char* name)
    {
        return reinterpret_cast<Function*>(::dlsym(RTLD_DEFAULT, name));
    }

    /// Runs statements; the error, or "done".
    static std::string run(const std::string& code)
    {
        std::array<char, 400> error{};
        auto* function = resolved<decltype(dyn_RunPython)>("dyn_RunPython");
        if (!function)
            return "not loaded";
        return function(code.c_str(), error.data(), error.size()) == 0 ? "done" : error.data();
    }

    static std::string addModule(const char* name, const char* text)
    {
        std::array<char, 400> error{};
        auto* function = resolved<decltype(dyn_AddPythonModule)>("dyn_AddPythonModule");
        if (!function)
            return "not loaded";
        return function(name, text, error.data(), error.size()) == 0 ? "done" : error.data();
    }

    static inline std::string version;
    static inline bool wasLoaded = true;
    static inline bool hasLoaded = false;
};

} // namespace

TEST_F(EmbeddedPython, IsLoadedByTheManager)
{
    EXPECT_FALSE(wasLoaded);
    EXPECT_NE(version, "");
    EXPECT_TRUE(hasLoaded);
    EXPECT_TRUE(isPythonLoaded());
}

TEST_F(EmbeddedPython, IsOfTheVersionThatWasChosen)
{
    auto* getVersion = resolved<int()>("dyn_GetPythonVersion");
    ASSERT_NE(getVersion, nullptr);
    EXPECT_EQ(run("import sys\nassert '%d.%d' % sys.version_info[:2] == '" + version + "'"), "done");
    EXPECT_EQ(
        run("assert sys.version_info[0] * 100 + sys.version_info[1] == " + std::to_string(getVersion())),
        "done");
}

TEST_F(EmbeddedPython, RunsCode)
{
    EXPECT_EQ(run("kept = 6 * 7"), "done");
    EXPECT_EQ(run("assert kept == 42"), "done");
    EXPECT_EQ(run(""), "done");
}

TEST_F(EmbeddedPython, ImportsModulesThatAreWrittenInC)
{
    EXPECT_EQ(run("import math, _ctypes, decimal, _json, _hashlib, _socket"), "done");
    EXPECT_EQ(run("assert decimal.Decimal('0.1') + decimal.Decimal('0.2') == decimal.Decimal('0.3')"),
              "done");
    EXPECT_EQ(run("assert _ctypes.__file__.endswith('.so')"), "done");
}

TEST_F(EmbeddedPython, GivesAnExceptionAsText)
{
    EXPECT_EQ(run("1/0"), "ZeroDivisionError: division by zero");
    EXPECT_EQ(run("raise ValueError"), "ValueError");
    EXPECT_THAT(run("def"), testing::StartsWith("SyntaxError: "));
    EXPECT_EQ(run("raise ValueError('caf\xc3\xa9')"), "ValueError: caf\xc3\xa9");
    EXPECT_EQ(run("class E(Exception):\n  def __str__(self): raise KeyError\nraise E"), "E");
}

TEST_F(EmbeddedPython, CutsATextThatDoesNotFit)
{
    EXPECT_EQ(run("raise ValueError('x' * 1000)").size(), 399);
    auto* function = resolved<decltype(dyn_RunPython)>("dyn_RunPython");
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(function("1/0", nullptr, 0), -1);
    char error = 'x';
    EXPECT_EQ(function("1/0", &error, 1), -1);
    EXPECT_EQ(error, '\0');
}

TEST_F(EmbeddedPython, DoesNotEndTheProgramWhenCodeExits)
{
    EXPECT_EQ(run("import sys; sys.exit(3)"), "SystemExit: 3");
}

TEST_F(EmbeddedPython, LeavesSignalsToTheProgram)
{
    struct sigaction before
    {};
    struct sigaction after
    {};
    ::sigaction(SIGINT, nullptr, &before);
    EXPECT_EQ(run("import signal, subprocess, asyncio"), "done");
    ::sigaction(SIGINT, nullptr, &after);
    EXPECT_EQ(before.sa_handler, after.sa_handler);
    ::sigaction(SIGPIPE, nullptr, &after);
    EXPECT_EQ(after.sa_handler, SIG_DFL);
}

TEST_F(EmbeddedPython, KeepsApartFromTheEnvironment)
{
    const TemporaryFolder folder;
    folder.write("intruder.py", "");
    const EnvironmentVariable path("PYTHONPATH", folder.path());
    const EnvironmentVariable home("PYTHONHOME", folder.path());
    EXPECT_THAT(run("import intruder"), testing::HasSubstr("No module named 'intruder'"));
    EXPECT_EQ(run("import sys; assert '' not in sys.path"), "done");
}

TEST_F(EmbeddedPython, TakesTextAsUtf8WhateverTheLocaleSays)
{
    EXPECT_EQ(run("import sys; assert sys.getfilesystemencoding() == 'utf-8'"), "done");
}

TEST_F(EmbeddedPython, RunsCodeFromAnyThread)
{
    ASSERT_EQ(run("count = 0"), "done");
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < 4; ++i)
            threads.emplace_back([] {
                for (int n = 0; n < 50; ++n)
                    run("count += 1");
            });
    }
    EXPECT_EQ(run("assert count == 200, count"), "done");
}

TEST_F(EmbeddedPython, IsEndedWithTheProgramByTheThreadThatStartedIt)
{
    ASSERT_EQ(run("import atexit, os\natexit.register(lambda: os._exit(7))"), "done");
    EXPECT_EXIT(std::exit(0), testing::ExitedWithCode(7), "");
    EXPECT_EQ(run("atexit._clear()"), "done");
}

TEST_F(EmbeddedPython, ImportsModulesThatThePvxPluginAdds)
{
    EXPECT_EQ(addModule("pvxtest", "answer = len('abc')"), "done");
    EXPECT_EQ(run("import pvxtest\nassert pvxtest.answer == 3 and pvxtest.__name__ == 'pvxtest'"), "done");
    EXPECT_EQ(addModule("pvxtest", "answer = 4"), "done");
    EXPECT_EQ(run("import pvxtest\nassert pvxtest.answer == 4"), "done");
}

TEST_F(EmbeddedPython, KeepsAModuleWhoseReplacementFails)
{
    ASSERT_EQ(addModule("pvxkept", "answer = 1"), "done");
    EXPECT_EQ(addModule("pvxkept", "answer = 2\nundefined"), "NameError: name 'undefined' is not defined");
    EXPECT_THAT(addModule("pvxkept", "def"), testing::StartsWith("SyntaxError: "));
    EXPECT_EQ(run("import pvxkept\nassert pvxkept.answer == 1"), "done");
    EXPECT_NE(addModule("pvxfailed", "1/0"), "done");
    EXPECT_EQ(run("import pvxfailed"), "ModuleNotFoundError: No module named 'pvxfailed'");
}

TEST_F(EmbeddedPython, RefusesAnotherLoad)
{
    EXPECT_FALSE(PythonExecutableManager().load(version));
}
