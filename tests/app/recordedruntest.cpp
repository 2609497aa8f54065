// Recordings of "halvorin run", and what repeats them.

#include "runtester.h"
#include "statechart/examples.h"
#include "support/smalldefinition.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

} // namespace

TEST_F(Run, RepeatsARecordingToTheByteWithoutTheFilesItCameFrom)
{
    run({"bundle", "d.json", "d.hvdsc.zip"});
    folder.write("fails.json", R"({"expect": [{"time": "1n", "pin": "q", "value": 1}]})");
    for (const char* device : {"d.json", "d.hvdsc.zip"}) {
        const std::vector<std::string> reports{"--trace", "--coverage", "-", "--lcov", "-"};
        std::vector<std::string> original{"run",        device,       "--stimulus", "s.json",
                                          "--stimulus", "fails.json", "--param",    "P=8",
                                          "--until",    "40n",        "--record",   "r.json"};
        original.insert(original.end(), reports.begin(), reports.end());
        const ProcessResult expected = run(original);
        EXPECT_EQ(expected.exitCode, 1);
        EXPECT_THAT(expected.output, HasSubstr("\n8\n"));
        EXPECT_EQ(expected.error, "fails.json: at 1n: q is 0, expected 1\n");

        std::filesystem::create_directory(folder / "elsewhere");
        std::filesystem::rename(folder / "r.json", folder / "elsewhere/r.json");
        std::vector<std::string> again{
            builtProgram("halvorin"), "run", "--replay", "r.json", "--record", "again.json"};
        again.insert(again.end(), reports.begin(), reports.end());
        ProcessOptions options;
        options.folder = (folder / "elsewhere").native();
        const ProcessResult repeated = runProcess(again, options);
        EXPECT_EQ(repeated.exitCode, expected.exitCode);
        EXPECT_EQ(repeated.output, expected.output);
        EXPECT_EQ(repeated.error, expected.error);
        EXPECT_EQ(folder.read("elsewhere/again.json"), folder.read("elsewhere/r.json"));
    }
}

TEST_F(Run, RepeatsTheWaveformsOfARecording)
{
    run({"run", "d.json", "--stimulus", "s.json", "--vcd", "w.vcd", "--record", "r.json"});
    for (const char* name : {"d.json", "s.json"})
        std::filesystem::remove(folder / name);
    ProcessOptions options;
    options.input = folder.read("r.json");
    EXPECT_EQ(run({"run", "--replay", "-", "--vcd", "again.vcd"}, options).output, "up\ndown\n3\n");
    EXPECT_EQ(folder.read("again.vcd"), folder.read("w.vcd"));
}

TEST_F(Run, RefusesWhatIsNoRecording)
{
    EXPECT_EQ(run({"run", "--replay", "s.json"}).error, "halvorin: s.json: not a recording of a run\n");
    EXPECT_EQ(run({"run", "--replay", "s.json"}).exitCode, 1);
    folder.write("r.json",
                 R"({"recording": 1, "device": "d", "definition": "{}", "stimuli": [], "parameters": [],
                               "resolution": "2n"})");
    EXPECT_EQ(run({"run", "--replay", "r.json"}).exitCode, 1);
}
