// Hostile and oversized input, and a system that gives nothing: a clear error, and nothing half-done.

#include "shelltester.h"
#include "support/smalldefinition.h"
#include "testfolders.h"

#include <csignal>
#include <fstream>
#include <unistd.h>

namespace {

constexpr std::size_t megabyte = std::size_t{1} << 20;

/// A bound for the peak of a process; a program that is watched by a sanitizer takes several times as much.
constexpr std::size_t megabytes(std::size_t count)
{
#ifdef __SANITIZE_ADDRESS__
    return 4 * count * megabyte;
#else
    return count * megabyte;
#endif
}

class Hardening : public ShellTester
{
protected:
    Hardening() { folder.write("d.json", smallDefinition); }

    /// Everything in the test's folder but what the shell itself keeps there.
    std::vector<std::string> files(const std::filesystem::path& within = "") const
    {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder / within)) {
            if (entry.is_regular_file())
                names.push_back(entry.path().lexically_relative(folder.path()).native());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
};

/// A definition of so many bytes or a few more: many states with an action each.
std::string largeDefinition(std::size_t size)
{
    std::string text = R"({"outputs": {"q": {"type": "pin", "initial": "0"}}, "outputDelay": "1n", )"
                       R"("start": "s0", "states": {)";
    for (std::size_t state = 0; text.size() < size; ++state) {
        text += (state > 0 ? ", \"s" : "\"s") + std::to_string(state) +
                R"(": {"type": "atomic", "onEntry": "\/\/ )" + std::string(400, 'x') +
                R"(\nint n = 3; if (n > 2) { setPinHigh(\"q\"); }"})";
    }
    return text + "}}";
}

} // namespace

TEST_F(Hardening, RefusesADeepDocumentInBoundedMemory)
{
    folder.write("deep.json", std::string(10'000'000, '['));
    for (const char* command : {"compile", "bundle"}) {
        const ProcessResult result = run({command, "deep.json", "out"});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.error, "invalid JSON 'nesting too deep' at line 1 character 5001\n");
        EXPECT_LT(result.peakMemory, megabytes(150));
    }
    const ProcessResult checked = run({"check", "deep.json"});
    EXPECT_EQ(checked.exitCode, 1);
    EXPECT_THAT(checked.output + checked.error, testing::HasSubstr("deep.json:1:5001: error: "));
}

TEST_F(Hardening, ReadsADocumentOfNothingButValuesInBoundedMemory)
{
    std::string text = "[{}";
    for (int index = 0; index < 10'000'000; ++index)
        text += ",{}";
    folder.write("many.json", text + "]");
    const ProcessResult result = run({"compile", "many.json", "out"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "JSON document is not an object\n");
    EXPECT_LT(result.peakMemory, megabytes(1200));
}

TEST_F(Hardening, CompilesADefinitionOfFiftyMegabytesInBoundedMemory)
{
    folder.write("large.json", largeDefinition(50'000'000));
    const ProcessResult compiled = run({"compile", "large.json", "device.json"});
    EXPECT_EQ(compiled.error, "");
    EXPECT_EQ(compiled.exitCode, 0);
    EXPECT_LT(compiled.peakMemory, megabytes(3000));
}

/// A definition with one action of so many statements.
static std::string longAction(std::size_t statements)
{
    std::string text = R"({"outputs": {}, "outputDelay": "1n", "start": "a", "states": {"a": {)"
                       R"("type": "atomic", "onEntry": "int x = 1;)";
    for (std::size_t statement = 0; statement < statements; ++statement)
        text += "x=x+1;";
    return text + "\"}}}";
}

TEST_F(Hardening, CompilesALongActionInBoundedMemory)
{
    folder.write("long.json", longAction(300'000));
    const ProcessResult compiled = run({"compile", "long.json", "device.json"});
    EXPECT_EQ(compiled.error, "");
    EXPECT_EQ(compiled.exitCode, 0);
    EXPECT_LT(compiled.peakMemory, megabytes(700));
}

TEST_F(Hardening, RefusesAnActionOfTooManyTokensInBoundedMemory)
{
    folder.write("long.json", longAction(3'000'000));
    const ProcessResult compiled = run({"compile", "long.json", "device.json"});
    EXPECT_EQ(compiled.exitCode, 1);
    EXPECT_EQ(compiled.error, "error: more than 2000000 tokens in one text at 'states[\"a\"].onEntry'\n");
    EXPECT_LT(compiled.peakMemory, megabytes(400));
}

#ifndef __SANITIZE_ADDRESS__ // which takes address space without end
TEST_F(Hardening, SaysSoWhenMemoryRunsOut)
{
    folder.write("long.json", longAction(300'000));
    for (const char* command : {"check long.json", "compile long.json out", "bundle long.json out"}) {
        const ProcessResult result = shell(std::string("ulimit -v 500000; \"$0\" ") + command);
        EXPECT_EQ(result.exitCode, 1) << command;
        EXPECT_THAT(result.output + result.error, testing::EndsWith("out of memory\n")) << command;
        EXPECT_THAT(result.output, testing::Not(testing::HasSubstr("long.json:"))) << command;
    }
}
#endif

TEST_F(Hardening, RefusesActionsThatNestTooDeep)
{
    constexpr std::size_t depth = 100'000;
    for (const auto& [open, close] : {std::pair{"(", ")"}, {"{", "}"}}) {
        std::string action = *open == '(' ? "int n = " : "";
        for (std::size_t level = 0; level < depth; ++level)
            action += open;
        action += *open == '(' ? "1" : "int n = 1;";
        for (std::size_t level = 0; level < depth; ++level)
            action += close;
        folder.write("deep.json", R"({"states": {"a": {"type": "atomic", "onEntry": ")" + action +
                                      R"(;"}}, "start": "a", "outputs": {}, "outputDelay": "1n"})");
        EXPECT_EQ(run({"compile", "deep.json", "device.json"}).exitCode, 1) << open;
        const ProcessResult checked = run({"check", "deep.json"});
        EXPECT_EQ(checked.exitCode, 1) << open;
        EXPECT_THAT(checked.output + checked.error, testing::HasSubstr("deep.json:1:")) << open;
        EXPECT_LT(checked.peakMemory, megabytes(300)) << open;
    }
}

TEST_F(Hardening, UnbundlesNothingOfHostileBundles)
{
    std::size_t count = 0;
    std::filesystem::create_directory(folder / "in");
    for (const auto& entry :
         std::filesystem::directory_iterator(std::filesystem::path(PROJECT_FOLDER) / "fuzz/corpus/package")) {
        if (entry.path().filename() == "bundle.zip") // an honest one
            continue;
        const ProcessResult result = run({"unbundle", entry.path().native(), "in/out"});
        EXPECT_NE(result.error, "") << entry.path();
        EXPECT_EQ(result.exitCode, 1) << entry.path();
        ++count;
    }
    EXPECT_GE(count, 5u);
    EXPECT_EQ(files("in"), std::vector<std::string>());
}

TEST_F(Hardening, UnbundlesNothingOfABombInBoundedMemory)
{
    ASSERT_EQ(run({"bundle", "d.json", "d.hvdsc.zip"}).exitCode, 0);
    ASSERT_EQ(shell("mkdir document && truncate -s 600M document/compiledDevice.json && "
                    "zip -q -1 d.hvdsc.zip document/compiledDevice.json && rm -r document")
                  .exitCode,
              0);
    const ProcessResult result = run({"unbundle", "d.hvdsc.zip", "out"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "the file is too large: the content of the archive\n");
    EXPECT_LT(result.peakMemory, megabytes(1500));
    EXPECT_EQ(files(), (std::vector<std::string>{"d.hvdsc.zip", "d.json"}));
}

TEST_F(Hardening, UnbundlesNothingOfABundleThatIsCutOffOrHasFlippedBitsUnlessItIsWhole)
{
    ASSERT_EQ(run({"bundle", "d.json", "d.hvdsc.zip"}).exitCode, 0);
    ASSERT_EQ(run({"unbundle", "d.hvdsc.zip", "whole"}).exitCode, 0);
    const std::string bundle = folder.read("d.hvdsc.zip");
    const auto unbundled = [&](const std::string& bytes) {
        folder.write("damaged.zip", bytes);
        std::filesystem::remove_all(folder / "out");
        return run({"unbundle", "damaged.zip", "out"});
    };
    for (std::size_t length = 0; length < bundle.size(); length += 1 + bundle.size() / 25) {
        const ProcessResult result = unbundled(bundle.substr(0, length));
        EXPECT_EQ(result.exitCode, 1) << length;
        EXPECT_NE(result.error, "") << length;
        EXPECT_FALSE(std::filesystem::exists(folder / "out")) << length;
    }
    for (std::size_t place = 0; place < bundle.size(); place += 1 + bundle.size() / 40) {
        std::string flipped = bundle;
        flipped[place] = static_cast<char>(flipped[place] ^ 4);
        const ProcessResult result = unbundled(flipped);
        EXPECT_TRUE(result.exitCode == 0 || (result.exitCode == 1 && !result.error.empty())) << place;
        for (const char* name : {"deviceDefinition.json", "compiledDevice.json"}) {
            const std::filesystem::path path = folder / "out" / name;
            if (std::filesystem::exists(path)) {
                EXPECT_EQ(folder.read(path), folder.read(folder / "whole" / name)) << place;
            }
        }
    }
}

TEST_F(Hardening, PutsBackWhatItReplacedWhenTheOtherDocumentCannotBeWritten)
{
    ASSERT_EQ(run({"bundle", "d.json", "d.hvdsc.zip"}).exitCode, 0);
    folder.write("out/deviceDefinition.json", "an earlier definition");
    std::filesystem::create_symlink("/dev/full", folder / "out/compiledDevice.json");
    const ProcessResult result = run({"unbundle", "d.hvdsc.zip", "out"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error,
              "the file cannot be written: 'out/compiledDevice.json' (No space left on device)\n");
    EXPECT_EQ(folder.read("out/deviceDefinition.json"), "an earlier definition");
    EXPECT_EQ(files("out"), std::vector<std::string>{"out/deviceDefinition.json"});
}

/// On a disk of its own that is full, or where none may be mounted, where no file may grow.
TEST_F(Hardening, LeavesNothingHalfWrittenOnAFullDisk)
{
    std::filesystem::create_directory(folder / "disk");
    folder.write("large.json", largeDefinition(megabyte));
    ASSERT_EQ(run({"bundle", "large.json", "large.hvdsc.zip"}).exitCode, 0);
    const std::string script = R"(
        printf earlier > disk/device.json; printf earlier > disk/d.hvdsc.zip
        mkdir disk/out; printf earlier > disk/out/compiledDevice.json
        for words in "compile large.json disk/device.json" "bundle large.json disk/d.hvdsc.zip" \
            "unbundle large.hvdsc.zip disk/out" "unbundle large.hvdsc.zip disk/new"; do
            "$0" $words; echo "$words: $?"
        done
        TMPDIR=disk "$0" compile - device.json < large.json; echo "spool: $?"
        cat disk/device.json disk/d.hvdsc.zip disk/out/compiledDevice.json; echo
        find disk -type f | sort)";
    folder.write("script", script);
    const bool mounts = shell("unshare -rm mount -t tmpfs -o size=16k none disk").exitCode == 0;
    const ProcessResult result =
        mounts ? shell("unshare -rm sh -c 'mount -t tmpfs -o size=16k none disk && . ./script' \"$0\"")
               : shell("ulimit -f 4; . ./script");
    EXPECT_EQ(result.output, "compile large.json disk/device.json: 1\n"
                             "bundle large.json disk/d.hvdsc.zip: 1\n"
                             "unbundle large.hvdsc.zip disk/out: 1\n"
                             "unbundle large.hvdsc.zip disk/new: 1\n"
                             "spool: 1\n"
                             "earlierearlier\n" // the device was emptied, as it is whenever a compile fails
                             "disk/d.hvdsc.zip\ndisk/device.json\ndisk/out/compiledDevice.json\n")
        << result.error;
    EXPECT_THAT(result.error, testing::HasSubstr("unable to write output file 'disk/device.json'\n"));
    const std::string why = mounts ? "No space left on device" : "File too large";
    EXPECT_THAT(result.error, testing::HasSubstr("the file cannot be written: 'disk/d.hvdsc.zip' (" + why));
    EXPECT_THAT(result.error,
                testing::HasSubstr("the file cannot be written: 'disk/out/deviceDefinition.json' (" + why));
    EXPECT_THAT(result.error, testing::HasSubstr("cannot keep standard input in a temporary file: " + why));
}

class EndingSignals : public Hardening, public testing::WithParamInterface<int>
{};

/// While it waits for the rest of standard input, of which a part stands in a file already.
TEST_P(EndingSignals, LeaveNoTemporaryFile)
{
    std::filesystem::create_directory(folder / "tmp");
    ProcessOptions options;
    options.environment = {{"TMPDIR", "tmp"}, {"SIGNAL", std::to_string(GetParam())}};
    const ProcessResult result = shell(R"(
        mkfifo input
        ulimit -c 0
        env --default-signal=INT,QUIT "$0" compile - device.json < input & pid=$!
        exec 3> input
        printf '{' >&3
        until ls tmp | grep -q .; do sleep 0.01; done
        kill -"$SIGNAL" $pid
        wait $pid
        echo $?)",
                                       options);
    EXPECT_EQ(result.output, std::to_string(128 + GetParam()) + "\n");
    EXPECT_TRUE(std::filesystem::is_empty(folder / "tmp"));
    EXPECT_FALSE(std::filesystem::exists(folder / "device.json"));
}

INSTANTIATE_TEST_SUITE_P(EachKind, EndingSignals,
                         testing::Values(SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGUSR1, SIGUSR2, SIGALRM,
                                         SIGVTALRM, SIGPROF, SIGPOLL, SIGPWR, SIGSTKFLT, SIGRTMIN, SIGRTMAX));
