#include "HostSupport/registry.h"
#include "HostSupport/scripthost.h"
#include "host/hostregistrations.h"
#include "support/python/pythontester.h"

#include <filesystem>

using HostSupport::call;
using HostSupport::Registry;
using HostSupport::ScriptCallException;
using HostSupport::ScriptValue;
using Strings = std::vector<std::string>;

namespace {

class PythonHandlers : public PythonTester
{
protected:
    void setUpTwo()
    {
        machine.setUpOne("3.11", 311);
        machine.install("3.12", "/other/python3.12");
        machine.addPlugin("more", "3.13");
        machine.servers[machine.installed[0].path] = "/opt/python/bin/pyright-langserver";
    }

    /// From now on nobody can tell which plug-ins there are.
    void breakPluginsFolder() { std::filesystem::create_symlink("plugins", machine.folder / "plugins"); }
};

constexpr auto version = "python.pythonVersion";
constexpr auto server = "python.languageServer";

} // namespace

TEST(PythonRegistrations, HaveTheirBoundsAndTypes)
{
    struct Row
    {
        const char* name;
        int argumentType;
        int maximum;
        int resultType;
    };
    for (const auto& [name, argumentType, maximum, resultType] :
         {Row{"IsPythonLoaded", 4, 0, 1}, Row{"PythonDefaults", 3, 1, 12},
          Row{"PythonSupportedVersions", 4, 0, 12}, Row{"PythonVersions", 4, 0, 12}}) {
        const auto* function = Registry::instance().functions().find(name);
        ASSERT_NE(function, nullptr) << name;
        ASSERT_EQ(function->argumentTypes.size(), 1) << name;
        EXPECT_EQ(static_cast<int>(function->argumentTypes[0]), argumentType) << name;
        EXPECT_EQ(function->minimumArguments, 0) << name;
        EXPECT_EQ(function->maximumArguments, maximum) << name;
        EXPECT_EQ(static_cast<int>(function->resultType), resultType) << name;
        EXPECT_TRUE(function->optionWords.empty()) << name;
        EXPECT_EQ(function->defaults.words, FunctionDefaults().words) << name;
    }
}

TEST(PythonRegistrations, HaveAHookForTheTimeWhenPluginsAreLoaded)
{
    const auto* hook = Registry::instance().hooks().find("loadPython");
    ASSERT_NE(hook, nullptr);
    EXPECT_STREQ(hook->event, "PostPluginLoad");
    EXPECT_EQ(hook->handler, loadPythonHook);
}

TEST(PythonRegistrations, HaveOptionsWithTheirDefaults)
{
    for (const auto& [name, text] : {std::pair("python.userPath", ""),
                                     {"python.showCompleter", "true"},
                                     {"python.showCompleterDocumentation", "true"},
                                     {"python.showSignatureHelper", "true"},
                                     {"python.showHover", "true"}}) {
        const auto* option = Registry::instance().options().find(name);
        ASSERT_NE(option, nullptr) << name;
        EXPECT_EQ(option->defaultText, text) << name;
    }
    for (const char* name : {"python.userPath", version})
        EXPECT_NE(Registry::instance().optionActions().find(name), nullptr) << name;
}

TEST_F(PythonHandlers, TellWhetherPythonIsLoaded)
{
    EXPECT_EQ(call("IsPythonLoaded", {}), ScriptValue(false));
    machine.modules = {"libEmbeddedPython.so"};
    EXPECT_EQ(call("IsPythonLoaded", {}), ScriptValue(true));
}

TEST_F(PythonHandlers, ListTheVersionsThatHaveAPlugin)
{
    setUpTwo();
    EXPECT_EQ(call("PythonSupportedVersions", {}), ScriptValue(Strings{"3.11", "3.13"}));
}

TEST_F(PythonHandlers, ListTheVersionsThatHaveAPluginAndAreInstalled)
{
    setUpTwo();
    EXPECT_EQ(call("PythonVersions", {}), ScriptValue(Strings{"3.11"}));
}

TEST_F(PythonHandlers, ListNoVersionsOnAMachineWithoutPython)
{
    EXPECT_EQ(call("PythonVersions", {}), ScriptValue(Strings{}));
    EXPECT_EQ(call("PythonSupportedVersions", {}), ScriptValue(Strings{}));
    EXPECT_EQ(call("PythonDefaults", {"1"}), ScriptValue(Strings{"", "", ""}));
    EXPECT_FALSE(store.stored(version));
    EXPECT_FALSE(store.stored(server));
}

TEST_F(PythonHandlers, GiveTheDefaultsAndWriteThemOnlyWhenTheyAreToldTo)
{
    setUpTwo();
    const Strings defaults{"3.11", "/opt/python/bin/python3.11", "/opt/python/bin/pyright-langserver"};
    for (const Strings& arguments : {Strings{}, Strings{"0"}, Strings{"0.0"}}) {
        EXPECT_EQ(call("PythonDefaults", arguments), ScriptValue(defaults));
        EXPECT_FALSE(store.stored(version));
        EXPECT_FALSE(store.stored(server));
    }
    EXPECT_EQ(call("PythonDefaults", {"1"}), ScriptValue(defaults));
    EXPECT_EQ(option(version), "3.11");
    EXPECT_EQ(option(server), defaults[2]);
}

TEST_F(PythonHandlers, WriteDefaultsOverNothingThatIsSet)
{
    setUpTwo();
    sp_WriteOption(version, "3.14");
    call("PythonDefaults", {"-1.5"});
    EXPECT_EQ(option(version), "3.14"); // an unsupported version is replaced at start only
    EXPECT_EQ(option(server), "/opt/python/bin/pyright-langserver");
}

TEST_F(PythonHandlers, WriteNothingForAnArgumentThatIsNoNumber)
{
    setUpTwo();
    for (const char* argument : {"", "yes", "1x"}) {
        log.clear();
        call("PythonDefaults", {argument});
        EXPECT_FALSE(store.stored(version));
        EXPECT_THAT(log, testing::EndsWith("error: python: PythonDefaults takes a number, and '" +
                                           std::string(argument) + "' is none\n"));
    }
}

TEST_F(PythonHandlers, AreNotReachedWithTooManyArguments)
{
    for (const auto& [name, arguments] : {std::pair("IsPythonLoaded", Strings{"a"}),
                                          {"PythonDefaults", {"1", "2"}},
                                          {"PythonSupportedVersions", {"a"}},
                                          {"PythonVersions", {"a"}}})
        EXPECT_THROW(call(name, arguments), ScriptCallException) << name;
}

TEST_F(PythonHandlers, GiveNothingAndSayWhyWhenTheyFail)
{
    breakPluginsFolder();
    for (const char* name : {"PythonDefaults", "PythonSupportedVersions", "PythonVersions"}) {
        log.clear();
        EXPECT_EQ(call(name, {}), ScriptValue(Strings{})) << name;
        EXPECT_THAT(log, testing::StartsWith("error: python: filesystem error: ")) << name;
    }
}

TEST_F(PythonHandlers, SayThatAChangeHasToWaitWhileAPluginIsLoaded)
{
    for (const char* name : {version, "python.userPath"}) {
        machine.modules.clear();
        log.clear();
        sp_WriteOption(name, "3.11");
        EXPECT_EQ(log, "") << name;
        machine.modules = {"libEmbeddedPython.so"};
        sp_WriteOption(name, "3.12");
        EXPECT_EQ(log, "error: python: Python version will change after application restart.\n") << name;
    }
}
