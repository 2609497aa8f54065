// Every overload of the general library, compiled, linked and compared with the standard's function.

#include "languagetester.h"
#include "operatormodel.h"
#include "support/concatenated.h"
#include "support/recordinginterface.h"

#include <algorithm>
#include <cmath>

namespace {

using Function = double (*)(double);
using Function2 = double (*)(double, double);

struct NamedFunction
{
    const char* name;
    Function function;
};

void PrintTo(const NamedFunction& named, std::ostream* output)
{
    *output << named.name;
}

const NamedFunction functions[] = {
    {"abs", std::abs},       {"acos", std::acos}, {"acosh", std::acosh},   {"asin", std::asin},
    {"asinh", std::asinh},   {"atan", std::atan}, {"atanh", std::atanh},   {"cbrt", std::cbrt},
    {"ceil", std::ceil},     {"cos", std::cos},   {"cosh", std::cosh},     {"erf", std::erf},
    {"erfc", std::erfc},     {"exp", std::exp},   {"exp2", std::exp2},     {"floor", std::floor},
    {"lgamma", std::lgamma}, {"log", std::log},   {"log10", std::log10},   {"log2", std::log2},
    {"round", std::round},   {"sin", std::sin},   {"sinh", std::sinh},     {"sqrt", std::sqrt},
    {"tan", std::tan},       {"tanh", std::tanh}, {"tgamma", std::tgamma}, {"trunc", std::trunc},
};

struct NamedFunction2
{
    const char* name;
    Function2 function;
};

void PrintTo(const NamedFunction2& named, std::ostream* output)
{
    *output << named.name;
}

const NamedFunction2 functions2[] = {{"atan2", std::atan2}, {"pow", std::pow}};

constexpr std::string_view letterOrderOfText = "sidblu";

std::vector<ModelValue> doubles()
{
    std::vector<ModelValue> values = interestingValues('d');
    for (const double value : {0.5, -0.5, 2.0, 3.5, -3.0, 10.0, 171.5, 0.0078125, 1000.25})
        values.emplace_back(value);
    return values;
}

std::string withoutSignOfNan(std::string text)
{
    return text == "-nan" ? "nan" : text;
}

/// What one call prints.
std::string printed(const std::string& statements)
{
    const std::vector<std::string> lines = printedBy(statements);
    return lines.size() == 1 ? withoutSignOfNan(lines.front()) : "not one line";
}

/// How the run of an action ends: "done" or "failed".
std::string runOutcome(const std::string& statements)
{
    try {
        (void)printedBy(statements);
        return "done";
    } catch (const std::runtime_error&) {
        return "failed";
    }
}

class MathFunction : public testing::TestWithParam<NamedFunction>
{};

TEST_P(MathFunction, GivesWhatTheStandardGives)
{
    const auto& [name, function] = GetParam();
    for (const ModelValue& x : doubles()) {
        const double expected = function(std::get<double>(x));
        const std::string source = concatenated({declarationOf("x", x), "print(", name, "(x));"});
        EXPECT_EQ(printed(source), printedText(expected)) << source;
    }
}

TEST_P(MathFunction, TakesAnIntThroughACast)
{
    const auto& [name, function] = GetParam();
    EXPECT_EQ(printed(concatenated({"int x = 3; print(", name, "(x));"})), printedText(function(3.0)));
}

TEST_P(MathFunction, TakesOneArgumentOfTypeDouble)
{
    const std::string name = GetParam().name;
    const std::string error =
        concatenated({": '", name, "': no overloaded function exists, check argument types"});
    const std::string size = std::to_string(name.size());
    EXPECT_EQ(outcomeOf(name + "();"), concatenated({"25 at 0+", size, error}));
    EXPECT_EQ(outcomeOf(name + "(1.0, 1.0);"), concatenated({"25 at 0+", size, error}));
    for (const char letter : {'b', 'c', 'l', 's', 'u'}) {
        const std::string declaration = declarationOf("x", interestingValues(letter).front());
        EXPECT_EQ(outcomeOf(concatenated({declaration, name, "(x);"})),
                  concatenated({"25 at ", std::to_string(declaration.size()), "+", size, error}));
    }
}

INSTANTIATE_TEST_SUITE_P(Library, MathFunction, testing::ValuesIn(functions),
                         [](const auto& given) { return std::string(given.param.name); });

class MathFunction2 : public testing::TestWithParam<NamedFunction2>
{};

TEST_P(MathFunction2, GivesWhatTheStandardGives)
{
    const auto& [name, function] = GetParam();
    for (const ModelValue& x : doubles())
        for (const ModelValue& y : doubles()) {
            const double expected = function(std::get<double>(x), std::get<double>(y));
            const std::string source =
                concatenated({declarationOf("x", x), declarationOf("y", y), "print(", name, "(x, y));"});
            EXPECT_EQ(printed(source), printedText(expected)) << source;
        }
}

TEST_P(MathFunction2, TakesIntsThroughCasts)
{
    const auto& [name, function] = GetParam();
    for (const char* arguments : {"(2, 3)", "(2.0, 3)", "(2, 3.0)"})
        EXPECT_EQ(printed(concatenated({"print(", name, arguments, ");"})), printedText(function(2.0, 3.0)));
}

INSTANTIATE_TEST_SUITE_P(Library, MathFunction2, testing::ValuesIn(functions2),
                         [](const auto& given) { return std::string(given.param.name); });

TEST(Library, HasThirtyFunctionsOfMathematics)
{
    EXPECT_EQ(std::size(functions) + std::size(functions2), 30u);
}

ModelValue larger(const ModelValue& a, const ModelValue& b)
{
    return std::get<bool>(*applyBinary("<", a, b)) ? b : a;
}

ModelValue smaller(const ModelValue& a, const ModelValue& b)
{
    return std::get<bool>(*applyBinary("<", b, a)) ? b : a;
}

TEST(Library, HasTheLargerAndTheSmallerOfFourTypes)
{
    for (const char letter : {'i', 'd', 'l', 'u'})
        for (const ModelValue& a : interestingValues(letter))
            for (const ModelValue& b : interestingValues(letter)) {
                if (printedText(a) == "nan" || printedText(b) == "nan" || a == b)
                    continue;
                const std::string declarations = declarationOf("a", a) + declarationOf("b", b);
                EXPECT_EQ(printed(declarations + "print(max(a, b));"), printedText(larger(a, b)));
                EXPECT_EQ(printed(declarations + "print(min(a, b));"), printedText(smaller(a, b)));
            }
}

TEST(Library, GivesTheLargerAndTheSmallerTheirOwnType)
{
    for (const std::string name : {"max", "min"})
        for (const char letter : {'i', 'd', 'l', 'u'}) {
            const std::string source =
                concatenated({declarationOf("a", interestingValues(letter)[1]), name, "(a, a);"});
            const TypedForm call = lastExpressionOf(languageBuilder().compileStatements(source).value());
            EXPECT_EQ(call.type, spellingOf(letter));
            EXPECT_EQ(call.form.member("argTypes").asArray(),
                      (JsonArray{JsonValue(spellingOf(letter)), JsonValue(spellingOf(letter))}));
        }
}

TEST(Library, HasNoLargerAndSmallerOfOtherTypes)
{
    for (const std::string name : {"max", "min"})
        for (const char left : typeLetters)
            for (const char right : typeLetters) {
                const bool exact =
                    left == right && std::string_view("idlu").find(left) != std::string_view::npos;
                const bool cast = (left == 'i' && right == 'd') || (left == 'd' && right == 'i');
                const auto operand = [](char letter, const std::string& variable) {
                    return letter == 'v' ? "print(1)" : variable;
                };
                const auto declared = [](char letter, const std::string& variable) {
                    return letter == 'v' ? "" : declarationOf(variable, interestingValues(letter)[1]);
                };
                const std::string declarations = declared(left, "a") + declared(right, "b");
                const std::string outcome = outcomeOf(concatenated(
                    {declarations, name, "(", operand(left, "a"), ", ", operand(right, "b"), ");"}));
                EXPECT_EQ(outcome,
                          exact || cast
                              ? "compiled"
                              : concatenated({"25 at ", std::to_string(declarations.size()), "+3: '", name,
                                              "': no overloaded function exists, check argument types"}))
                    << spellingOf(left) << ", " << spellingOf(right);
            }
}

TEST(Library, PrintsEveryValueOfSixTypes)
{
    for (const char letter : letterOrderOfText)
        for (const ModelValue& value : interestingValues(letter))
            EXPECT_EQ(printed(declarationOf("x", value) + "print(x);"), printedText(value));
}

TEST(Library, FormatsEveryValueOfSixTypes)
{
    for (const char letter : letterOrderOfText)
        for (const ModelValue& value : interestingValues(letter)) {
            std::string text = printed(declarationOf("x", value) + "print(format(\"<{}>\", x));");
            if (text == "<-nan>")
                text = "<nan>";
            EXPECT_EQ(text, concatenated({"<", printedText(value), ">"}));
        }
}

TEST(Library, NamesTheOverloadsOfPrintAndFormatByTheirTypes)
{
    for (const char letter : letterOrderOfText) {
        const std::string declaration = declarationOf("x", interestingValues(letter).front());
        const auto argumentTypes = [&](const std::string& call) {
            const JsonValue compiled =
                std::move(languageBuilder().compileStatements(declaration + call)).value();
            return lastExpressionOf(compiled).form.member("argTypes").asArray();
        };
        EXPECT_EQ(argumentTypes("print(x);"), JsonArray{JsonValue(spellingOf(letter))});
        EXPECT_EQ(argumentTypes("format(\"{}\", x);"),
                  (JsonArray{JsonValue("string"), JsonValue(spellingOf(letter))}));
    }
}

TEST(Library, SaysWhatIsWrongWithAFormatText)
{
    struct Row
    {
        const char* arguments;
        const char* words;
    };
    for (const Row& row : std::initializer_list<Row>{
             {R"("{", 1)", "unmatched '{' in a format"},
             {R"("}", 1)", "unmatched '}' in a format"},
             {R"("{1}", 1)", "a format names an argument that is not there"},
             {R"("{} {}", 1)", "a format names an argument that is not there"},
             {R"("{0} {}", 1)", "automatic and manual numbering do not mix"},
         }) {
        try {
            (void)printedBy(concatenated({"print(format(", row.arguments, "));"}));
            ADD_FAILURE() << row.arguments;
        } catch (const std::exception& failure) {
            EXPECT_STREQ(failure.what(), row.words) << row.arguments;
        }
    }
}

TEST(Library, FailsInTheRunOnABadFormatText)
{
    for (const std::string arguments :
         {R"("{", 1)", R"("}", 1)", R"("{:", 1)", R"("{1}", 1)", R"("{} {}", 1)", R"("{:z}", 1)",
          R"("{:d}", "text")", R"("{:s}", 1)", R"("{:x}", 1.5)", R"("{:.2}", 1)", R"("{:?}", "text")",
          R"("{:c}", true)", R"("{name}", 1)", R"("{:{}}", 1)", R"("{:99999999999}", 1)"})
        EXPECT_EQ(runOutcome(concatenated({"print(format(", arguments, "));"})), "failed") << arguments;
}

TEST(Library, RunsAgainAfterAFormatThatFailed)
{
    const std::string source =
        "int n; n += 1; string f = \"{}\"; if (n == 1) f = \"{\"; print(format(f, n));";
    RecordingInterface recorder;
    const CompileResult compiled = languageBuilder().compileStatements(source);
    const LinkedStatements action = languageBuilder().linkStatements(compiled.value());
    EXPECT_THROW(action.execute(recorder), std::runtime_error);
    action.execute(recorder);
    EXPECT_EQ(recorder.lines, std::vector<std::string>{"2"});
}

} // namespace
