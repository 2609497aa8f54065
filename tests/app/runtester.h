#ifndef RUNTESTER_H
#define RUNTESTER_H

#include "shelltester.h"

/// Follows its input after 1 ns, prints each edge, and divides by a parameter when it is told to.
inline constexpr auto follower = R"json({
    "states": {
        "low": {"type": "atomic", "onEntry": "setPinLow(\"q\");", "transitions": {
            "rise": {"target": "high", "order": 0, "event": "change", "conditions": "isPositiveEdge(\"d\")",
                     "actions": "print(\"up\"); setVariable(\"n\", getVariable_int(\"n\") + 1);"}}},
        "high": {"type": "atomic", "onEntry": "setPinHigh(\"q\");", "transitions": {
            "fall": {"target": "low", "order": 0, "event": "change", "conditions": "isNegativeEdge(\"d\")",
                     "actions": ["print(\"down\");", "print(getParameter_int64_t(\"P\"));"]}}}
    },
    "start": "low", "inputs": {"d": {"type": "pin"}}, "outputs": {"q": {"type": "pin", "initial": "0"}},
    "outputDelay": "1n", "parameters": {"P": {"type": "int64_t", "value": "3"}},
    "variables": {"n": {"type": "int", "value": 0}}
})json";

inline constexpr auto pulse =
    R"({"events": [{"time": "10n", "pin": "d", "value": 1}, {"time": "20n", "pin": "d", "value": 0}],
                           "expect": [{"time": "11n", "pin": "q", "value": 1}, {"time": "15n", "variable": "n", "value": 1}],
                           "until": "30n"})";

/// A device that runs an action when it starts.
inline std::string deviceWith(const std::string& jsonAction)
{
    return R"({"states": {"a": {"type": "atomic", "onEntry": ["print(\"before\");", ")" + jsonAction +
           R"("]}}, "start": "a", "outputs": {}, "outputDelay": "1n", "inputs": {"x": {"type": "pin"}}})";
}

class Run : public ShellTester
{
protected:
    Run()
    {
        folder.write("d.json", follower);
        folder.write("s.json", pulse);
        std::filesystem::create_directory(folder / "tmp");
        inTemporaryFolder.environment = {{"TMPDIR", (folder / "tmp").native()}};
    }

    bool exists(const std::string& name) const { return std::filesystem::exists(folder / name); }

    /// That a run of a device ends in an error and leaves nothing but what it printed.
    void expectStopped(const std::vector<std::string>& more, const std::string& output,
                       const std::string& error)
    {
        std::vector<std::string> arguments{"run",   "d.json",     "--until", "1",        "--vcd",
                                           "w.vcd", "--coverage", "c.json",  "--record", "r.json"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        const ProcessResult result = run(arguments, inTemporaryFolder);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_EQ(result.output, output);
        EXPECT_EQ(result.error, error);
        EXPECT_TRUE(std::filesystem::is_empty(folder / "tmp"));
        for (const char* name : {"w.vcd", "c.json", "r.json"})
            EXPECT_FALSE(exists(name)) << name;
    }

    ProcessOptions inTemporaryFolder;
};

#endif
