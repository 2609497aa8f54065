// "halvorin diagram", and that the tools whose languages it writes take what it writes.

#include "shelltester.h"
#include "statechart/examples.h"
#include "support/smalldefinition.h"

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr auto twoStates = R"json({"states": {
    "a": {"type": "atomic", "onEntry": "print(\"<&>\");", "transitions": {
        "t": {"target": "b", "order": 0, "event": "change", "conditions": "isPinHigh(\"x\") && 1 < 2"}}},
    "b": {"type": "atomic"}},
    "start": "a", "inputs": {"x": {"type": "pin"}}, "outputs": {}, "outputDelay": "1n"})json";

/// Names and texts that are hard on every language.
constexpr auto oddNames = R"json({"states": {
    "": {"type": "compound", "initial": "-->", "onEntry": "", "onExit": [], "substates": {
        "-->": {"type": "atomic", "transitions": {"": {"target": "]]>", "order": 0},
            "a b": {"target": "", "order": 1, "event": "wake", "wakeTime": "2n"}}},
        "]]>": {"type": "atomic", "onEntry": ["print(\"\\\"|*_~#;:%\");", "\t\nprint(1 < 2);"]}}},
    "\"}\n{\\N": {"type": "parallel", "substates": {"é\t\b": {"type": "atomic"}, "$&amp;": {"type": "parallel",
        "substates": {}}}}},
    "start": "", "outputs": {}, "outputDelay": "1n"})json";

class Diagram : public ShellTester
{
protected:
    Diagram()
    {
        folder.write("d.json", twoStates);
        folder.write("odd.json", oddNames);
    }

    /// All definitions to try the languages on.
    std::vector<std::filesystem::path> definitions() const
    {
        std::vector<std::filesystem::path> paths = definitionsUnder("charts");
        for (const char* name : {"d.json", "odd.json"})
            paths.push_back(folder / name);
        return paths;
    }

    std::string diagram(const std::filesystem::path& definition, const char* language) const
    {
        const ProcessResult result = run({"diagram", definition.native(), "--as", language});
        EXPECT_EQ(result.exitCode, 0) << result.error;
        return result.output;
    }
};

} // namespace

TEST_F(Diagram, InTheLanguageOfGraphvizIsLaidOutWithoutAWarning)
{
    for (const std::filesystem::path& definition : definitions()) {
        ProcessOptions options;
        options.input = diagram(definition, "dot");
        const ProcessResult result = runProcess({"dot", "-Tsvg"}, options);
        EXPECT_EQ(result.exitCode, 0) << definition;
        EXPECT_EQ(result.error, "") << definition;
    }
}

TEST_F(Diagram, AsAPictureIsValidXml)
{
    for (const std::filesystem::path& definition : definitions()) {
        ProcessOptions options;
        options.input = diagram(definition, "svg");
        EXPECT_THAT(options.input, HasSubstr("<svg"));
        const ProcessResult result = runProcess({"xmllint", "--noout", "-"}, options);
        EXPECT_EQ(result.exitCode, 0) << definition << result.error;
    }
}

TEST_F(Diagram, InScxmlIsTakenByQtsReader)
{
    for (const std::filesystem::path& definition : definitions()) {
        folder.write("chart.scxml", diagram(definition, "scxml"));
        const ProcessResult result = runProcess(
            {QSCXMLC_PROGRAM, (folder / "chart.scxml").native(), "-o", (folder / "chart").native()});
        EXPECT_EQ(result.exitCode, 0) << definition << result.error;
        EXPECT_EQ(result.error, "") << definition;
        EXPECT_TRUE(std::filesystem::exists(folder / "chart.cpp"));
        std::filesystem::remove(folder / "chart.cpp");
        EXPECT_EQ(runProcess({"xmllint", "--noout", (folder / "chart.scxml").native()}).exitCode, 0)
            << definition;
    }
}

TEST_F(Diagram, IsAPictureUnlessTold)
{
    EXPECT_EQ(run({"diagram", "d.json"}).output, diagram("d.json", "svg"));
}

TEST_F(Diagram, HasALanguageForEachTool)
{
    EXPECT_THAT(diagram("d.json", "dot"), StartsWith("digraph chart {\n"));
    EXPECT_THAT(diagram("d.json", "mermaid"), StartsWith("stateDiagram-v2\n"));
    EXPECT_THAT(diagram("d.json", "plantuml"), StartsWith("@startuml\n"));
    EXPECT_THAT(diagram("d.json", "scxml"), StartsWith("<?xml "));
}

TEST_F(Diagram, ListsWhatALanguageCannotSayOnStandardError)
{
    EXPECT_EQ(run({"diagram", "d.json", "--as", "scxml"}).error,
              "d.json: scxml does not say: an action, kept as an element that others do not run: "
              "print(\"<&>\"); (entry of state 'a')\n"
              "d.json: scxml does not say: a condition, kept as an attribute that others do not read: "
              "isPinHigh(\"x\") && 1 < 2 (transition 't')\n");
    EXPECT_EQ(run({"diagram", "d.json", "--as", "dot"}).error, "");
}

TEST_F(Diagram, IsTheSameOfADefinitionABundleAndStandardInput)
{
    ASSERT_EQ(run({"bundle", "d.json", "d.hvdsc.zip"}).exitCode, 0);
    const std::string expected = diagram("d.json", "dot");
    EXPECT_EQ(diagram("d.hvdsc.zip", "dot"), expected);
    ProcessOptions options;
    options.input = twoStates;
    EXPECT_EQ(run({"diagram", "-", "--as", "dot"}, options).output, expected);
}

TEST_F(Diagram, GoesToAFileWhenToldOrLeavesItAsItWas)
{
    const ProcessResult result = run({"diagram", "d.json", "--as", "dot", "-o", "d.dot"});
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(folder.read("d.dot"), diagram("d.json", "dot"));

    folder.write("d.dot", "an earlier picture");
    ProcessOptions options;
    options.fileSizeLimit = 100;
    EXPECT_EQ(run({"diagram", "d.json", "--as", "dot", "--output", "d.dot"}, options).exitCode, 1);
    EXPECT_EQ(folder.read("d.dot"), "an earlier picture");
    EXPECT_EQ(run({"diagram", "d.json", "--as", "dot", "-o", "/nix/d.dot"}).exitCode, 1);
}

TEST_F(Diagram, ColoursWhatARunUsed)
{
    folder.write("s.json", R"({"events": [{"time": 1, "pin": "x", "value": 1}]})");
    ASSERT_EQ(run({"run", "d.json", "--stimulus", "s.json", "--coverage", "c.json"}).exitCode, 0);
    const ProcessResult used = run({"diagram", "d.json", "--as", "dot", "--coverage", "c.json"});
    EXPECT_EQ(used.exitCode, 0);
    EXPECT_THAT(used.output, HasSubstr("(1 times)"));
    EXPECT_THAT(used.output, testing::Not(HasSubstr("(0 times)")));
    ASSERT_EQ(run({"run", "d.json", "--until", "0", "--coverage", "c.json"}).exitCode, 0);
    EXPECT_THAT(run({"diagram", "d.json", "--as", "dot", "--coverage", "c.json"}).output,
                HasSubstr("(0 times)"));
    EXPECT_EQ(run({"diagram", "d.json", "--coverage", "c.json"}).exitCode, 0);
}

TEST_F(Diagram, RefusesWhatItCannotShow)
{
    folder.write("bad.json", definitionWithoutStates);
    const ProcessResult bad = run({"diagram", "bad.json"});
    EXPECT_EQ(bad.exitCode, 1);
    EXPECT_EQ(bad.output, "");
    EXPECT_EQ(bad.error, run({"check", "bad.json"}).output);

    run({"compile", "d.json", "d.compiled"});
    const ProcessResult compiled = run({"diagram", "d.compiled"});
    EXPECT_EQ(compiled.exitCode, 1);
    EXPECT_EQ(compiled.error,
              "halvorin: d.compiled: a compiled device has no texts to show: give its definition\n");

    const ProcessResult coverage = run({"diagram", "d.json", "--coverage", "d.json"});
    EXPECT_EQ(coverage.exitCode, 1);
    EXPECT_THAT(coverage.error, StartsWith("halvorin: d.json: not a coverage of halvorin run: "));
    EXPECT_EQ(run({"diagram", "missing.json"}).error, "halvorin: the file does not exist: 'missing.json'\n");
}

TEST_F(Diagram, ShowsBytesThatAreNoCharactersAsSuch)
{
    folder.write("bytes.json", "{\"states\": {\"a\xff\": {\"type\": \"atomic\", \"onEntry\": "
                               "\"print(\\\"\xc3\xef\xbf\xbe\\\");\"}}, \"start\": \"a\xff\", "
                               "\"outputs\": {}, \"outputDelay\": \"1n\"}");
    const ProcessResult picture = run({"diagram", "bytes.json"});
    EXPECT_EQ(picture.exitCode, 0);
    EXPECT_EQ(picture.error, "bytes.json: svg does not say: bytes that are no characters of UTF-8\n");
    EXPECT_THAT(picture.output, HasSubstr("a\xef\xbf\xbd"));
    ProcessOptions options;
    options.input = diagram("bytes.json", "scxml");
    EXPECT_EQ(runProcess({"xmllint", "--noout", "-"}, options).exitCode, 0);
}

TEST_F(Diagram, TellsOfWrongUsage)
{
    EXPECT_EQ(run({"diagram"}).exitCode, 2);
    EXPECT_EQ(run({"diagram", "d.json", "--as", "png"}).exitCode, 2);
    EXPECT_EQ(run({"diagram", "d.json", "d.json"}).exitCode, 2);
    const ProcessResult twice = run({"diagram", "-", "--coverage", "-"});
    EXPECT_EQ(twice.exitCode, 2);
    EXPECT_EQ(twice.error, "halvorin: standard input (-) is given more than once\n");
}

TEST_F(Diagram, SaysThatGraphvizIsMissing)
{
    ProcessOptions options;
    options.environment = {{"PATH", folder.path().native()}};
    const ProcessResult result = run({"diagram", "d.json"}, options);
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.error,
                StartsWith("halvorin: cannot run Graphviz's program \"dot\", which lays out the picture: "));
    EXPECT_EQ(run({"diagram", "d.json", "--as", "dot"}, options).exitCode, 0);
}

TEST_F(Diagram, ReportsAStandardOutputThatTakesNothing)
{
    for (const Stream stream : {Stream::closed, Stream::brokenPipe, Stream::fullDevice}) {
        ProcessOptions options;
        options.output = stream;
        const ProcessResult result = run({"diagram", "d.json", "--as", "dot"}, options);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.error, HasSubstr("cannot write to standard output: "));
    }
}
