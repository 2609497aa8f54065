// What every stimulus of the examples makes of its device, against files that are reviewed: golden/runs has
// for each stimulus the trace of the run and its waveforms. scripts/regenerate-golden writes them anew.

#include "shelltester.h"
#include "statechart/examples.h"
#include "support/jsontext.h"
#include "support/valuechanges.h"
#include "testfolders.h"

#include <cstdlib>

namespace {

namespace fs = std::filesystem;

/// A stimulus of an example device.
struct Bench
{
    fs::path stimulus;

    fs::path folder() const { return stimulus.parent_path(); }

    /// Path of a golden file, which may not be there.
    fs::path golden(const std::string& extension) const
    {
        return fs::path(TEST_SOURCE_FOLDER) / "golden" / "runs" / folder().filename() /
               (stimulus.stem().native() + extension);
    }
};

std::vector<Bench> benches()
{
    std::vector<Bench> found;
    for (const fs::path& definition : definitionsUnder("charts"))
        for (const auto& entry : fs::directory_iterator(definition.parent_path()))
            if (entry.path().filename().native().starts_with("stimulus"))
                found.push_back({entry.path()});
    std::ranges::sort(found, {}, &Bench::stimulus);
    return found;
}

class GoldenRuns : public ShellTester
{
protected:
    /// Runs from inside the device's folder: no path of this machine gets into what is compared.
    ProcessResult runIn(const fs::path& device, std::vector<std::string> arguments) const
    {
        arguments.insert(arguments.begin(), {builtProgram("halvorin"), "run", "definition.json"});
        ProcessOptions options;
        options.folder = device.native();
        options.environment.emplace_back("XDG_CONFIG_HOME", (folder / "config").native());
        return runProcess(arguments, options);
    }

    /// Compares a text with a golden file, or makes it that.
    static void compare(const std::string& text, const fs::path& golden)
    {
        if (std::getenv("HALVORIN_REGENERATE_GOLDEN") != nullptr) {
            fs::create_directories(golden.parent_path());
            std::ofstream(golden, std::ios::binary) << text;
            return;
        }
        ASSERT_TRUE(fs::exists(golden)) << golden << " is missing: scripts/regenerate-golden makes it";
        EXPECT_EQ(text, readText(golden)) << golden << " differs: after a change that is meant to be, "
                                          << "scripts/regenerate-golden and review what git shows";
    }
};

} // namespace

TEST_F(GoldenRuns, AreAsTheyWereReviewed)
{
    ASSERT_FALSE(benches().empty());
    for (const Bench& bench : benches()) {
        SCOPED_TRACE(bench.stimulus);
        const ProcessResult result =
            runIn(bench.folder(), {"--stimulus", bench.stimulus.filename().native(), "--trace", "--vcd",
                                   (folder / "waves.vcd").native()});
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.error, "");
        compare(result.output, bench.golden(".trace"));
        compare(folder.read("waves.vcd"), bench.golden(".vcd"));
    }
}

TEST_F(GoldenRuns, BelongToAStimulusEach)
{
    std::set<fs::path> expected;
    for (const Bench& bench : benches())
        expected.insert({bench.golden(".trace"), bench.golden(".vcd")});
    std::set<fs::path> present;
    for (const auto& entry :
         fs::recursive_directory_iterator(fs::path(TEST_SOURCE_FOLDER) / "golden" / "runs"))
        if (entry.is_regular_file())
            present.insert(entry.path());
    EXPECT_EQ(present, expected);
}

TEST_F(GoldenRuns, ReachEveryStateAndEveryTransitionOfADevice)
{
    for (const fs::path& definition : definitionsUnder("charts")) {
        SCOPED_TRACE(definition);
        std::vector<std::string> arguments{"--coverage", (folder / "coverage.json").native()};
        for (const Bench& bench : benches())
            if (bench.folder() == definition.parent_path())
                arguments.insert(arguments.end(), {"--stimulus", bench.stimulus.filename().native()});
        ASSERT_GT(arguments.size(), 2u) << "there is no stimulus";
        const ProcessResult result = runIn(definition.parent_path(), arguments);
        EXPECT_EQ(result.exitCode, 0); // every expectation holds
        EXPECT_EQ(result.error, "");
        const JsonValue coverage = jsonOf(folder.read("coverage.json"));
        EXPECT_GT(coverage.member("states").asArray().size(), 0u);
        for (const JsonValue& state : coverage.member("states").asArray())
            EXPECT_GT(state.member("entered").asInt(), 0) << state.member("state").asString();
        for (const JsonValue& transition : coverage.member("transitions").asArray())
            EXPECT_GT(transition.member("taken").asInt(), 0) << transition.member("transition").asString();
    }
}

TEST_F(GoldenRuns, HaveAnExpectationInEachStimulus)
{
    for (const Bench& bench : benches())
        EXPECT_FALSE(jsonOf(readText(bench.stimulus)).member("expect").asArray().empty()) << bench.stimulus;
}

TEST_F(GoldenRuns, AreReadByTheViewersOwnConverterWithEqualValues)
{
    for (const Bench& bench : benches()) {
        SCOPED_TRACE(bench.stimulus);
        const fs::path dump = bench.golden(".vcd");
        const ProcessResult packed = runProcess({"vcd2fst", dump.native(), (folder / "waves.fst").native()});
        ASSERT_EQ(packed.exitCode, 0) << packed.output << packed.error;
        const ProcessResult unpacked = runProcess({"fst2vcd", (folder / "waves.fst").native()});
        ASSERT_EQ(unpacked.exitCode, 0) << unpacked.error;
        EXPECT_EQ(valueChangesOf(unpacked.output), valueChangesOf(readText(dump)));
    }
}
