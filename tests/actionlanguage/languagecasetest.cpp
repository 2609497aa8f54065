// Runs the cases of cases/*.cases. The fields:
//
//   source        the text; `as` says what it is: statements (when left out), condition, expression
//   compiled      a compiled form, in place of a source
//
//   form          the whole compiled form
//   statement     the form of the last statement
//   expr          TYPE FORM of the expression of the last statement
//   shape         the same expression as text, with all parentheses
//   variables     the "variables" of the compiled form
//   error         CODE at POSITION+LENGTH: MESSAGE of the error that ends the compile
//   finding       the same of each finding of the tokeniser
//   warning       the same of each warning, in order; a case that names none has none
//   fails         what() of any other exception that ends the compile
//   link-fails    what() of the exception that ends the link
//   prints        what is printed when the action runs, a line a call; `runs` says how often it runs
//   value         the value of a condition or an expression
//   run-fails     what() of the exception that ends the run

#include "languagetester.h"
#include "support/casefile.h"
#include "support/jsontext.h"
#include "support/recordinginterface.h"
#include "testfolders.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <span>

namespace {

constexpr std::string_view knownKeys[] = {
    "source",  "compiled", "as",    "form",       "statement", "expr", "shape", "variables", "error",
    "finding", "warning",  "fails", "link-fails", "prints",    "runs", "value", "run-fails",
};
constexpr std::string_view expectationsOfRun[] = {"prints", "value", "run-fails"};

bool hasAny(const TestCase& testCase, std::span<const std::string_view> keys)
{
    return std::any_of(keys.begin(), keys.end(), [&](std::string_view key) { return testCase.has(key); });
}

std::string numberText(double value)
{
    char text[64];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

/// One case on its way: compile, look at the form, link, run.
class LanguageCaseRun
{
public:
    explicit LanguageCaseRun(const TestCase& testCase)
        : m_case(testCase), m_as(testCase.valueOr("as", "statements"))
    {}

    void run()
    {
        checkKeys();
        if (testing::Test::HasFailure())
            return;
        const std::optional<JsonValue> compiled = m_case.has("source") ? compileSource() : givenForm();
        if (!compiled)
            return;
        EXPECT_EQ(jsonOf(toString(*compiled)), *compiled) << "does not survive writing and reading";
        checkForm(*compiled);
        if (m_case.has("link-fails"))
            checkLinkFailure(*compiled);
        else if (hasAny(m_case, expectationsOfRun))
            checkRun(*compiled);
    }

private:
    void checkKeys() const
    {
        bool expectsSomething = false;
        for (const CaseField& field : m_case.fields()) {
            EXPECT_NE(std::find(std::begin(knownKeys), std::end(knownKeys), field.key), std::end(knownKeys))
                << "line " << field.line << ": unknown key '" << field.key << "'";
            expectsSomething |=
                field.key != "source" && field.key != "compiled" && field.key != "as" && field.key != "runs";
        }
        EXPECT_TRUE(expectsSomething) << "nothing is expected";
        EXPECT_NE(m_case.has("source"), m_case.has("compiled")) << "either a source or a compiled form";
    }

    JsonValue givenForm() const { return jsonOf(m_case.at("compiled")); }

    CompileResult compile(const std::string& source) const
    {
        if (m_as == "condition")
            return languageBuilder().compileCondition(source);
        if (m_as == "expression")
            return languageBuilder().compileExpression(source);
        if (m_as == "statements")
            return languageBuilder().compileStatements(source);
        throw std::runtime_error("as what? " + m_as);
    }

    std::optional<JsonValue> compileSource() const
    {
        const std::string& source = m_case.at("source");
        std::string error;
        std::string failure;
        try {
            const CompileResult result = compile(source);
            checkDiagnostics(result, source);
            EXPECT_FALSE(m_case.has("error")) << "compiles";
            EXPECT_FALSE(m_case.has("fails")) << "compiles";
            return result.hasValue() ? std::optional(result.value()) : std::nullopt;
        } catch (const CompilationException& caught) {
            EXPECT_STREQ(caught.what(), "compilation error");
            error = describe(caught, source);
        } catch (const std::exception& caught) {
            failure = caught.what();
        }
        EXPECT_EQ(error, m_case.valueOr("error", ""));
        EXPECT_EQ(failure, m_case.valueOr("fails", ""));
        return std::nullopt;
    }

    void checkDiagnostics(const CompileResult& result, const std::string& source) const
    {
        std::vector<std::string> warnings;
        for (const Diagnostic& warning : result.warnings())
            warnings.push_back(describeWarning(warning, source));
        EXPECT_EQ(warnings, m_case.all("warning"));

        std::vector<std::string> findings;
        for (const Diagnostic& finding : result.findings())
            findings.push_back(describeFinding(finding, source));
        EXPECT_EQ(findings, m_case.all("finding"));
        EXPECT_EQ(result.hasValue(), findings.empty());
    }

    void checkForm(const JsonValue& compiled) const
    {
        expectForm("form", [&] { return compiled; });
        expectForm("variables", [&] { return compiled.member("variables"); });
        expectForm("statement", [&] { return compiled.member("statements").asArray().back(); });
        if (m_case.has("expr")) {
            const TypedForm last = lastExpressionOf(compiled);
            const std::string& expected = m_case.at("expr");
            const auto blank = expected.find(' ');
            EXPECT_EQ(last.type, expected.substr(0, blank));
            EXPECT_EQ(last.form, jsonOf(expected.substr(blank)));
        }
        if (m_case.has("shape")) {
            EXPECT_EQ(shapeOf(m_as == "statements" ? lastExpressionOf(compiled).form : compiled),
                      m_case.at("shape"));
        }
    }

    template <class Form>
    void expectForm(std::string_view key, const Form& form) const
    {
        if (m_case.has(key)) {
            EXPECT_EQ(form(), jsonOf(m_case.at(key))) << key;
        }
    }

    void checkLinkFailure(const JsonValue& compiled) const
    {
        std::string failure = "no failure";
        try {
            if (m_as == "condition")
                (void)languageBuilder().linkCondition(compiled);
            else if (m_as == "expression")
                (void)languageBuilder().linkExpression(compiled);
            else
                (void)languageBuilder().linkStatements(compiled);
        } catch (const std::runtime_error& caught) {
            failure = caught.what();
        }
        EXPECT_EQ(failure, m_case.at("link-fails"));
    }

    void checkRun(const JsonValue& compiled) const
    {
        RecordingInterface recorder;
        std::string failure;
        std::string value;
        try {
            if (m_as == "condition") {
                const LinkedExpression linked = languageBuilder().linkCondition(compiled);
                value = linked.as<bool>().evaluate(recorder) ? "true" : "false";
            } else if (m_as == "expression") {
                const LinkedExpression linked = languageBuilder().linkExpression(compiled);
                value = numberText(linked.as<double>().evaluate(recorder));
            } else {
                const LinkedStatements linked = languageBuilder().linkStatements(compiled);
                for (int round = std::stoi(m_case.valueOr("runs", "1")); round > 0; --round)
                    linked.execute(recorder);
            }
        } catch (const std::runtime_error& caught) {
            failure = caught.what();
        }
        EXPECT_EQ(failure, m_case.valueOr("run-fails", ""));
        EXPECT_EQ(value, m_case.valueOr("value", ""));
        EXPECT_EQ(recorder.lines, splitLines(m_case.valueOr("prints", "")));
    }

    const TestCase& m_case;
    std::string m_as;
};

class LanguageCase : public testing::TestWithParam<TestCase>
{};

TEST_P(LanguageCase, Holds)
{
    SCOPED_TRACE(GetParam().place());
    SCOPED_TRACE("source: " + GetParam().valueOr("source", "none"));
    LanguageCaseRun(GetParam()).run();
}

INSTANTIATE_TEST_SUITE_P(Cases, LanguageCase, testing::ValuesIn(readCaseFolder(TEST_SOURCE_FOLDER "/cases")),
                         [](const auto& given) { return identifierOf(given.param); });

} // namespace
