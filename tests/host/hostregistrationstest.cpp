#include "host/hostregistrations.h"

#include "HostSupport/registry.h"
#include "HostSupport/scripthost.h"
#include "host/stringresults.h"
#include "support/smalldefinition.h"
#include "support/temporaryfolder.h"

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

TEST(HostRegistrations, GiveTheSharedBlockBack)
{
    ScriptArguments arguments({"", ""});
    ScriptResults results;
    ScriptSharedBlock* block = ScriptSharedBlock::create();
    compileDigitalDeviceStateChartHandler(arguments, results, *block);
    EXPECT_EQ(block->references(), 1);
    EXPECT_TRUE(results.isFinished());
    block->release();
}

TEST(StringResults, CopyEveryText)
{
    ScriptResults results;
    storeStrings(results, {"Error", ""});
    EXPECT_EQ(results.strings(), (Strings{"Error", ""}));
}
