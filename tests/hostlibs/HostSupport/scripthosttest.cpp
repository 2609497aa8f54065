#include "HostSupport/scripthost.h"

#include "HalvCore/application.h"
#include "HostSupport/registrations.h"

#include <cstring>

using HostSupport::call;
using HostSupport::Registry;
using HostSupport::ScriptCallException;
using HostSupport::ScriptValue;
using Strings = std::vector<std::string>;

namespace {

ScriptSharedBlock* lastBlock = nullptr;
std::string happened;

void echo(ScriptArguments& arguments, ScriptResults& results, ScriptSharedBlock& block)
{
    const ScriptSharedBlockHold hold(block);
    const std::size_t count = arguments.count(1) > 0 ? 2 : 1;
    char** slots = results.allocateStrings(count);
    for (std::size_t i = 0; i < count; ++i)
        slots[i] = strdup(arguments.text(i));
    results.finish();
}

void answerYes(ScriptArguments&, ScriptResults& results, ScriptSharedBlock&)
{
    *results.booleanSlot() = 1;
    results.finish();
}

void forgetToFinish(ScriptArguments&, ScriptResults&, ScriptSharedBlock&) {}

void raise(ScriptArguments&, ScriptResults&, ScriptSharedBlock& block)
{
    const ScriptSharedBlockHold hold(block);
    throw std::runtime_error("the reason");
}

void keepBlock(ScriptArguments&, ScriptResults& results, ScriptSharedBlock& block)
{
    lastBlock = &block;
    block.retain();
    results.finish();
}

FuncConstruct function(const char* name, int minimum, int maximum, ScriptFunctionHandler handler,
                       ScriptResultType type)
{
    return FuncConstruct(name, {ScriptArgumentType::string}, {}, minimum, maximum, handler, "test", type, {});
}

std::string errorOf(const std::string& name, Strings arguments)
{
    try {
        call(name, std::move(arguments));
        return "no error";
    } catch (const ScriptCallException& error) {
        return error.what();
    }
}

} // namespace

// A static of file scope: it registers before anything else of this program has run.
static const FuncConstruct earlyFunction("testEarly", {ScriptArgumentType::string}, {}, 1, 2, echo, "test",
                                         ScriptResultType::strings, {});

TEST(ScriptHost, KnowsWhatAStaticRegistered)
{
    const auto* found = Registry::instance().functions().find("testEarly");
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->minimumArguments, 1);
    EXPECT_EQ(found->maximumArguments, 2);
    EXPECT_STREQ(found->category, "test");
    EXPECT_EQ(static_cast<int>(found->resultType), 12);
}

TEST(ScriptHost, ForgetsWhatWasTakenBack)
{
    {
        const FuncConstruct passing = function("testPassing", 0, 0, answerYes, ScriptResultType::boolean);
        EXPECT_NE(Registry::instance().functions().find("testPassing"), nullptr);
    }
    EXPECT_EQ(Registry::instance().functions().find("testPassing"), nullptr);
}

TEST(ScriptHost, GivesTheStringsOfAResult)
{
    EXPECT_EQ(call("testEarly", {"a"}), ScriptValue(Strings{"a"}));
    EXPECT_EQ(call("testEarly", {"a", "\xff b"}), ScriptValue(Strings{"a", "\xff b"}));
}

TEST(ScriptHost, GivesABooleanResultAndNone)
{
    const FuncConstruct yes = function("testYes", 0, 0, answerYes, ScriptResultType::boolean);
    const FuncConstruct none = function("testNone", 0, 0, answerYes, ScriptResultType::none);
    EXPECT_EQ(call("testYes", {}), ScriptValue(true));
    EXPECT_EQ(call("testNone", {}), ScriptValue());
}

TEST(ScriptHost, RejectsACallOutsideTheBoundsBeforeTheHandler)
{
    EXPECT_EQ(errorOf("testEarly", {}), "testEarly takes 1 to 2 arguments, 0 were given");
    EXPECT_EQ(errorOf("testEarly", {"a", "b", "c"}), "testEarly takes 1 to 2 arguments, 3 were given");
    const FuncConstruct one = function("testOne", 1, 1, raise, ScriptResultType::none);
    EXPECT_EQ(errorOf("testOne", {}), "testOne takes 1 argument, 0 were given");
    const FuncConstruct zero = function("testZero", 0, 0, raise, ScriptResultType::none);
    EXPECT_EQ(errorOf("testZero", {"a"}), "testZero takes 0 arguments, 1 was given");
}

TEST(ScriptHost, KnowsNoOtherName)
{
    EXPECT_EQ(errorOf("testUnknown", {}), "there is no script function or command 'testUnknown'");
}

TEST(ScriptHost, ReportsAHandlerThatBrokeItsContract)
{
    const FuncConstruct raising = function("testRaise", 0, 0, raise, ScriptResultType::none);
    const FuncConstruct unfinished = function("testUnfinished", 0, 0, forgetToFinish, ScriptResultType::none);
    EXPECT_EQ(errorOf("testRaise", {}), "testRaise failed: the reason");
    EXPECT_EQ(errorOf("testUnfinished", {}), "testUnfinished gave no result");
}

TEST(ScriptHost, LeavesTheSharedBlockToItsLastOwner)
{
    const FuncConstruct keeping = function("testKeep", 0, 0, keepBlock, ScriptResultType::none);
    call("testKeep", {});
    ASSERT_NE(lastBlock, nullptr);
    EXPECT_EQ(lastBlock->references(), 1);
    lastBlock->release();
}

TEST(ScriptSharedBlock, DestroysItsStateWithTheLastOwner)
{
    auto state = std::make_shared<int>(1);
    ScriptSharedBlock* block = ScriptSharedBlock::create(state);
    {
        const ScriptSharedBlockHold hold(*block);
        EXPECT_EQ(block->references(), 2);
        block->release();
        EXPECT_EQ(state.use_count(), 2);
    }
    EXPECT_EQ(state.use_count(), 1);
}

TEST(ScriptResults, GiveAnEmptyTextForASlotThatWasLeftNull)
{
    ScriptResults results;
    results.allocateStrings(1)[0] = strdup("given up");
    results.allocateStrings(2)[1] = strdup("kept");
    EXPECT_EQ(results.strings(), (Strings{"", "kept"}));
}

TEST(ScriptHost, RunsACommandWithoutArguments)
{
    happened.clear();
    const ComConstruct command(
        "testCommand", [] { happened += "command"; }, 0, "test");
    EXPECT_EQ(call("testCommand", {}), ScriptValue());
    EXPECT_EQ(happened, "command");
    EXPECT_EQ(errorOf("testCommand", {"a"}), "testCommand takes 0 arguments, 1 was given");
}

TEST(ScriptHost, RunsTheHooksOfAnEventInTheirOrder)
{
    happened.clear();
    const AutoFunc exec(
        "PreExec", [] { happened += "exec "; }, "first");
    const AutoFunc plugin(
        "PostPluginLoad", [] { happened += "plugin "; }, "second");
    const AutoFunc plugin2(
        "PostPluginLoad", [] { happened += "plugin2 "; }, "third");
    HostSupport::runHooks("NoSuchEvent");
    EXPECT_EQ(happened, "");
    HostSupport::start();
    EXPECT_EQ(happened, "plugin plugin2 exec ");
}

TEST(ScriptHost, RunsTheOtherHooksWhenOneFails)
{
    happened.clear();
    const AutoFunc failing(
        "testEvent", [] { throw std::runtime_error("the reason"); }, "failing");
    const AutoFunc other(
        "testEvent", [] { happened += "other"; }, "other");
    std::string lines;
    auto& logger = Halvorin::System::Application::instance().logger();
    logger.setOutput([&lines](std::string_view line) { lines += line; });
    HostSupport::runHooks("testEvent");
    logger.setOutput({});
    EXPECT_EQ(lines, "error: script: failing failed: the reason\n");
    EXPECT_EQ(happened, "other");
}

TEST(ScriptHost, LogsCallsWhenTheApplicationWantsIt)
{
    auto& application = Halvorin::System::Application::instance();
    std::string lines;
    application.logger().setOutput([&lines](std::string_view line) { lines += line; });
    application.logger().setLevel(Halvorin::System::MessageSeverity::info);
    call("testEarly", {"quiet"});
    application.settings().setLogScriptCalls(true);
    call("testEarly", {"a", "b"});
    application.settings().setLogScriptCalls(false);
    application.logger().setLevel(Halvorin::System::MessageSeverity::warning);
    application.logger().setOutput({});
    EXPECT_EQ(lines, "info: script: testEarly(\"a\", \"b\")\n");
}
