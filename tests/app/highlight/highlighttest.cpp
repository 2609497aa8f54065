// "halvorin highlight", and that the library brings its grammar along.

#include "app/shelltester.h"
#include "statechart/examples.h"

#include <QCborMap>
#include <QCborValue>
#include <QJsonDocument>
#include <QJsonObject>
#include <cstdlib>
#include <regex>

namespace {

using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

const std::filesystem::path golden = std::filesystem::path(TEST_SOURCE_FOLDER) / "golden";

constexpr auto usualGrammar =
    R"json({"scopeName": "s", "patterns": [{"match": "[0-9]+", "name": "constant.numeric.s"}]})json";

constexpr auto asPropertyList = R"(<?xml version="1.0"?>
<plist><dict><key>scopeName</key><string>s</string><key>patterns</key><array><dict>
<key>match</key><string>[0-9]+</string><key>name</key><string>constant.numeric.s</string>
</dict></array></dict></plist>)";

class Highlight : public ShellTester
{
protected:
    Highlight() { folder.write("g.json", usualGrammar); }

    /// Highlights standard input.
    ProcessResult highlight(const std::string& text, std::vector<std::string> more = {}) const
    {
        ProcessOptions options;
        options.input = text;
        more.insert(more.begin(), {"highlight", "-"});
        return run(more, options);
    }

    /// The output for standard input in a form, by the grammar g.json.
    std::string as(const std::string& form, const std::string& text) const
    {
        const ProcessResult result = highlight(text, {"--grammar", "g.json", "--as", form});
        EXPECT_EQ(result.exitCode, 0) << result.error;
        EXPECT_EQ(result.error, "");
        return result.output;
    }

    void expectFailure(const std::vector<std::string>& arguments, const std::string& message,
                       int exitCode = 1) const
    {
        const ProcessResult result = run(arguments);
        EXPECT_EQ(result.exitCode, exitCode) << message;
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.error, "halvorin: " + message + "\n");
    }
};

/// What a browser shows of the <pre> of a document.
std::string shownText(const std::string& document)
{
    const std::string start = "<pre>\n";
    const std::size_t first = document.find(start) + start.size();
    std::string text = document.substr(first, document.find("</pre>") - first);
    text = std::regex_replace(text, std::regex("</?span[^>]*>"), "");
    for (const auto& [entity, character] : std::vector<std::pair<const char*, const char*>>{
             {"&lt;", "<"}, {"&gt;", ">"}, {"&quot;", "\""}, {"&amp;", "&"}})
        text = std::regex_replace(text, std::regex(entity), character);
    return text;
}

} // namespace

TEST_F(Highlight, FormsAreAsTheyWereReviewed)
{
    for (const char* form : {"ansi", "html", "json"}) {
        ProcessOptions options;
        options.input = readText(golden / "sample.txt");
        const ProcessResult result =
            run({"highlight", "-", "--grammar", (golden / "grammar.json").native(), "--as", form}, options);
        EXPECT_EQ(result.exitCode, 0);
        EXPECT_EQ(result.error, "");
        const std::filesystem::path file = golden / (std::string("sample.") + form);
        if (std::getenv("HALVORIN_REGENERATE_GOLDEN") != nullptr)
            std::ofstream(file, std::ios::binary) << result.output;
        else
            EXPECT_EQ(result.output, readText(file))
                << "after a change that is meant to be, scripts/regenerate-golden and review what git shows";
    }
}

TEST_F(Highlight, IsForATerminalAndByTheGrammarForPythonUnlessTold)
{
    folder.write("a.py", "def f(): pass  # x\n");
    const ProcessResult result = run({"highlight", "a.py"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(result.output,
              "\x1b[1;38;5;27mdef\x1b[0m \x1b[1;38;5;98mf\x1b[0m(): \x1b[1;38;5;27mpass\x1b[0m  "
              "\x1b[38;5;243m# x\x1b[0m\n");
    EXPECT_EQ(run({"highlight", "a.py", "--as", "ansi"}).output, result.output);
    EXPECT_EQ(highlight("def f(): pass  # x\n").output, result.output);
}

TEST_F(Highlight, HasALineOfJsonForEachLineAndNoneForAFinalNewLine)
{
    const std::string line = R"([{"start":0,"length":1,"scopes":["s","constant.numeric.s"]},)"
                             R"({"start":1,"length":1,"scopes":["s"]}])"
                             "\n";
    const std::string empty = R"([{"start":0,"length":1,"scopes":["s"]}])"
                              "\n";
    EXPECT_EQ(as("json", ""), "");
    EXPECT_EQ(as("json", "1"), line);
    EXPECT_EQ(as("json", "1\n"), line);
    EXPECT_EQ(as("json", "1\n\n"), line + empty);
    EXPECT_EQ(as("json", "\n1\r\n"), empty + line);
}

TEST_F(Highlight, CountsColumnsInUtf16)
{
    EXPECT_THAT(as("json", "😀1"), HasSubstr(R"({"start":2,"length":1,"scopes":["s","constant.numeric.s"]})"));
}

TEST_F(Highlight, IsTheSameByAGrammarInEachFormat)
{
    const QJsonObject grammar = QJsonDocument::fromJson(usualGrammar).object();
    folder.write("g.dat", QCborMap::fromJsonObject(grammar).toCborValue().toCbor().toStdString());
    folder.write("g.tmLanguage", asPropertyList);
    folder.write("G.JSON", usualGrammar);
    for (const char* file : {"g.dat", "g.tmLanguage", "G.JSON"})
        EXPECT_EQ(highlight("a 1\n", {"--grammar", file, "--as", "json"}).output, as("json", "a 1\n"))
            << file;
}

TEST_F(Highlight, RefusesAGrammarThatCannotBeRead)
{
    folder.write("g.txt", usualGrammar);
    folder.write("broken.json", "{");
    folder.write("none.json", R"({"scopeName": "s", "patterns": []})");
    folder.write("list.json", "[1]");
    folder.write("text.tmLanguage", usualGrammar);
    folder.write("empty.dat", "");
    std::filesystem::create_directory(folder / "folder.json");
    const auto refusal = [this](const std::string& grammar, const std::string& reason) {
        expectFailure({"highlight", "g.json", "--grammar", grammar}, grammar + ": " + reason);
    };
    refusal("nix.json", "there is no such file");
    refusal("nix.txt", "there is no such file");
    refusal("folder.json", "not a file that holds a grammar");
    refusal("g.txt", "the name of a grammar ends in .json, .dat or .tmLanguage");
    for (const char* file : {"broken.json", "none.json", "list.json", "text.tmLanguage", "empty.dat"})
        refusal(file, "not a grammar: it has no rules in \"patterns\"");
    expectFailure({"highlight", "g.json", "--grammar", ""}, "--grammar: the name is empty", 2);
}

TEST_F(Highlight, RefusesAGrammarThatItMayNotRead)
{
    folder.write("secret.json", usualGrammar);
    std::filesystem::permissions(folder / "secret.json", std::filesystem::perms::none);
    std::filesystem::permissions(folder.path(), std::filesystem::perms::all);
    const int exitCode = runInChild([this] {
        dropRights();
        const ProcessResult result = run({"highlight", "-", "--grammar", "secret.json"});
        return result.error == "halvorin: secret.json: the file cannot be read\n" ? result.exitCode : 99;
    });
    EXPECT_EQ(exitCode, 1);
}

TEST_F(Highlight, LogsWhatItMakesNothingOfInAGrammar)
{
    folder.write("odd.json", R"json({"scopeName": "s", "patterns": [{"match": "\u001b("}, {"include": "#nix"},
        {"match": "1", "captures": {"0": {"name": "constant.numeric.s", "patterns": []}}}]})json");
    const std::vector<std::string> arguments{"highlight", "g.json", "--grammar", "odd.json", "--as", "json"};
    EXPECT_EQ(run(arguments).error, "");
    std::vector<std::string> logged = arguments;
    logged.insert(logged.begin(), {"--log", "diagnostic"});
    const ProcessResult result = run(logged);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_EQ(result.output, run(arguments).output);
    for (const char* line :
         {"diagnostic: grammar: Expression error: ?( with reason missing closing parenthesis\n",
          "diagnostic: grammar: unable to find rule: #nix\n", "diagnostic: grammar: extra keys: patterns\n"})
        EXPECT_THAT(result.error, HasSubstr(line));
}

TEST_F(Highlight, RefusesAFileThatIsMissingOrNotUtf8BeforeAnythingIsPrinted)
{
    folder.write("latin.py", "x = 1\n# \xe9\n");
    expectFailure({"highlight", "latin.py"}, "latin.py: the text is not UTF-8");
    const ProcessResult input = highlight("x = 1\n\xff");
    EXPECT_EQ(input.exitCode, 1);
    EXPECT_EQ(input.output, "");
    EXPECT_EQ(input.error, "halvorin: <standard input>: the text is not UTF-8\n");
    const ProcessResult missing = run({"highlight", "nix.py"});
    EXPECT_EQ(missing.exitCode, 1);
    EXPECT_THAT(missing.error, HasSubstr("nix.py"));
}

TEST_F(Highlight, TellsOfWrongUsage)
{
    for (const std::vector<std::string>& arguments : {std::vector<std::string>{"highlight"},
                                                      {"highlight", "g.json", "--as", "pdf"},
                                                      {"highlight", "g.json", "g.json"}})
        EXPECT_EQ(run(arguments).exitCode, 2) << testing::PrintToString(arguments);
}

TEST_F(Highlight, LetsNothingInAFileSteerATerminal)
{
    EXPECT_EQ(as("ansi", "\x1b[J\t\a\u009b\x7f\r.\n"), "?[J\t????.\n");
}

TEST_F(Highlight, InHtmlShowsTheTextAsItStands)
{
    const std::string text = "\n\n <b>&amp;</b> \"1\" '\t é😀 </pre><script>\n1\n";
    const std::string document = as("html", text);
    EXPECT_EQ(shownText(document), text);
    EXPECT_THAT(document, StartsWith("<!DOCTYPE html>\n"));
    EXPECT_THAT(document, HasSubstr("<meta charset=\"utf-8\">"));
    EXPECT_THAT(document, HasSubstr("<span class=\"constant-numeric\">1</span>"));
    EXPECT_THAT(document, EndsWith("</html>\n"));
    EXPECT_THAT(as("html", "\x1b\x01\u0085"), HasSubstr("\ufffd\ufffd\ufffd\n"));
}

TEST_F(Highlight, InHtmlHasItsFileForATitle)
{
    folder.write("<&>.txt", "1");
    EXPECT_THAT(run({"highlight", "<&>.txt", "--as", "html"}).output,
                HasSubstr("<title>&lt;&amp;&gt;.txt</title>"));
    EXPECT_THAT(as("html", "1"), HasSubstr("<title>&lt;standard input&gt;</title>"));
}

TEST_F(Highlight, InHtmlIsWellFormedButForWhatHtmlLeavesOpen)
{
    std::string document = highlight(readText(golden / "sample.txt"), {"--as", "html"}).output;
    document = std::regex_replace(document, std::regex("<!DOCTYPE html>|<meta[^>]*>"), "");
    ProcessOptions options;
    options.input = document;
    const ProcessResult result = runProcess({"xmllint", "--noout", "-"}, options);
    EXPECT_EQ(result.exitCode, 0) << result.error;
}

TEST_F(Highlight, InHtmlHasAStyleForEachClass)
{
    const std::string document = highlight(readText(golden / "sample.txt"), {"--as", "html"}).output;
    const std::regex used("class=\"([^\"]+)\"");
    int count = 0;
    for (std::sregex_iterator match(document.begin(), document.end(), used), end; match != end;
         ++match, ++count)
        EXPECT_THAT(document, HasSubstr("\n." + (*match)[1].str() + " { color: #"));
    EXPECT_GT(count, 0);
}

TEST_F(Highlight, OfALongTextTakesNotManyTimesItsSize)
{
    constexpr std::size_t size = 3'000'000;
    std::string text;
    while (text.size() < size)
        text += "x = [1, 'two', f(3)]  # and so on\n";
    folder.write("little.py", "x = 1\n");
    folder.write("long.py", text);
    ProcessOptions options;
    options.environment.emplace_back("ASAN_OPTIONS",
                                     "quarantine_size_mb=1"); // a sanitizer keeps what is freed
    const std::size_t little = run({"highlight", "little.py"}, options).peakMemory;
    const ProcessResult result = run({"highlight", "long.py"}, options);
    EXPECT_EQ(result.exitCode, 0);
    EXPECT_LT(result.peakMemory - little, 4 * size);
}

TEST_F(Highlight, ReportsAStandardOutputThatTakesNothing)
{
    folder.write("long.txt", std::string(200'000, '\n'));
    for (const Stream stream : {Stream::closed, Stream::brokenPipe, Stream::fullDevice}) {
        ProcessOptions options;
        options.output = stream;
        const ProcessResult result = run({"highlight", "long.txt", "--as", "html"}, options);
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_THAT(result.error, StartsWith("halvorin: cannot write to standard output: "));
    }
}

TEST_F(Highlight, TakesALongLine)
{
    const std::string line = std::string(200'000, '(') + "1";
    const std::string json = as("json", line + "\n1\n");
    EXPECT_THAT(json, HasSubstr(R"({"start":200000,"length":1,"scopes":["s","constant.numeric.s"]})"));
    EXPECT_THAT(
        json,
        EndsWith(
            "]\n"
            R"([{"start":0,"length":1,"scopes":["s","constant.numeric.s"]},{"start":1,"length":1,"scopes":["s"]}])"
            "\n"));
}

TEST_F(Highlight, IsInTheReferenceAsItComesOut)
{
    const std::string reference = readText(PROJECT_FOLDER "/docs/reference/highlight.md");
    const std::string command = "printf 'x = 1\\n' | halvorin highlight - --as json";
    const std::string output = shell(std::regex_replace(command, std::regex("halvorin"), "\"$$0\"")).output;
    EXPECT_THAT(output, Not(testing::IsEmpty()));
    EXPECT_THAT(reference, HasSubstr("$ " + command + "\n" + output));
}
