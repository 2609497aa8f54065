#include "host/hostregistrations.h"

#include "HostSupport/registry.h"
#include "HostSupport/scripthost.h"
#include "host/stringresults.h"
#include "support/smalldefinition.h"
#include "support/temporaryfolder.h"

#include <fstream>
#include <memory>
#include <new>
#include <sys/stat.h>
#include <thread>

using HostSupport::call;
using HostSupport::Registry;
using HostSupport::ScriptCallException;
using HostSupport::ScriptValue;
using Strings = std::vector<std::string>;

namespace {

constexpr auto compileFunction = "CompileDigitalDeviceStateChart";

} // namespace

TEST(HostRegistrations, RegisterTheCompileFunctionWithItsBoundsAndResult)
{
    const auto* function = Registry::instance().functions().find(compileFunction);
    ASSERT_NE(function, nullptr);
    EXPECT_EQ(function->argumentTypes, (std::vector{ScriptArgumentType::string, ScriptArgumentType::string}));
    EXPECT_TRUE(function->optionWords.empty());
    EXPECT_EQ(function->minimumArguments, 2);
    EXPECT_EQ(function->maximumArguments, 2);
    EXPECT_EQ(static_cast<int>(function->resultType), 12);
    EXPECT_EQ(function->defaults.words, FunctionDefaults().words);
}

TEST(HostRegistrations, RejectACompileWithFewerOrMoreThanTwoArguments)
{
    const TemporaryFolder folder;
    const std::string output = folder.write("device.json", "untouched");
    for (const Strings& arguments : {Strings{}, Strings{output}, Strings{"a", output, "c"}})
        EXPECT_THROW(call(compileFunction, arguments), ScriptCallException);
    EXPECT_EQ(folder.read("device.json"), "untouched");
}

TEST(HostRegistrations, GiveTheOutcomeOfACompileAsStrings)
{
    const TemporaryFolder folder;
    const std::string definition = folder.write("definition.json", smallDefinition);
    EXPECT_EQ(call(compileFunction, {definition, folder / "device.json"}), ScriptValue(Strings{"Ok"}));
    EXPECT_NE(folder.read("device.json"), "");
}

TEST(HostRegistrations, ReportAFailedCompileOnlyInItsResult)
{
    EXPECT_EQ(call(compileFunction, {"", ""}), ScriptValue(Strings{"Error", "unable to open input file ''"}));
}

TEST(HostRegistrations, HoldTheSharedBlockDuringTheCallAndGiveItBackOnEveryWayOut)
{
    for (const auto& [definition, outcome] :
         {std::pair(smallDefinition, "Ok"), std::pair("no JSON", "Error")}) {
        const TemporaryFolder folder;
        const std::string pipe = folder / "pipe"; // it keeps the handler inside until it has been looked at
        ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
        ScriptArguments arguments({pipe, folder / "device.json"});
        ScriptResults results;
        auto state = std::make_shared<int>();
        const std::weak_ptr<int> watched = state;
        ScriptSharedBlock* block = ScriptSharedBlock::create(std::move(state));
        {
            std::jthread call([&] { compileDigitalDeviceStateChartHandler(arguments, results, *block); });
            std::ofstream writer(pipe); // opens once the handler has opened the other end
            EXPECT_EQ(block->references(), 2);
            writer << definition;
        }
        EXPECT_TRUE(results.isFinished());
        EXPECT_EQ(results.strings().at(0), outcome);
        EXPECT_EQ(block->references(), 1);
        EXPECT_FALSE(watched.expired());
        block->release();
        EXPECT_TRUE(watched.expired());
    }
}

TEST(HostRegistrations, GiveTheSharedBlockBackToAHostThatLetGoMeanwhile)
{
    const TemporaryFolder folder;
    const std::string pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    ScriptArguments arguments({pipe, folder / "device.json"});
    ScriptResults results;
    auto state = std::make_shared<int>();
    const std::weak_ptr<int> watched = state;
    ScriptSharedBlock* block = ScriptSharedBlock::create(std::move(state));
    {
        std::jthread call([&] { compileDigitalDeviceStateChartHandler(arguments, results, *block); });
        std::ofstream writer(pipe);
        block->release();
        EXPECT_FALSE(watched.expired());
    }
    EXPECT_TRUE(watched.expired());
}

TEST(HostRegistrations, HoldTheSharedBlockUntilAnExceptionHasLeft)
{
    ScriptSharedBlock* block = ScriptSharedBlock::create();
    try {
        const ScriptSharedBlockHold hold(*block);
        EXPECT_EQ(block->references(), 2);
        throw std::bad_alloc();
    } catch (const std::bad_alloc&) {
        EXPECT_EQ(block->references(), 1);
    }
    block->release();
}

TEST(StringResults, CopyEveryText)
{
    ScriptResults results;
    storeStrings(results, {"Error", ""});
    EXPECT_EQ(results.strings(), (Strings{"Error", ""}));
}
