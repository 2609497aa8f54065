// Functions made for the tests: how overloads compete, and the order in which arguments are evaluated.

#include "actionlanguage/buildrules.h"
#include "actionlanguage/functions/functionlibrary.h"
#include "languagetester.h"
#include "support/concatenated.h"
#include "support/recordinginterface.h"

namespace {

using Interface = AbstractExecutionInterface;

FunctionRules testFunctions()
{
    FunctionRules rules;
    const auto add = [&](std::string_view name, FunctionOverloads overloads) {
        rules.push_back(std::make_unique<const FunctionRule>(name, std::move(overloads)));
    };
    add("either", functionOverloads([](Interface&, bool) { return std::string("bool"); },
                                    [](Interface&, double) { return std::string("double"); }));
    add("crossed",
        functionOverloads([](Interface&, std::int32_t, double) { return std::string("int, double"); },
                          [](Interface&, double, std::int32_t) { return std::string("double, int"); }));
    add("nearest",
        functionOverloads([](Interface&, double, double) { return std::string("double, double"); },
                          [](Interface&, std::int32_t, double) { return std::string("int, double"); },
                          [](Interface&, std::int32_t) { return std::string("int"); }));
    add("trace", functionOverloads([](Interface& output, std::int32_t value) {
            output.print(std::to_string(value));
            return value;
        }));
    add("three", functionOverloads([](Interface& output, std::int32_t a, std::int32_t b, std::int32_t c) {
            output.print("called");
            return a * 100 + b * 10 + c;
        }));
    add("truth", functionOverloads([](Interface& output, bool value) {
            output.print(value ? "true" : "false");
            return value;
        }));
    add("sin", functionOverloads([](Interface&, std::int32_t) { return std::string("not the sine"); }));
    return rules;
}

const CodeBuilder& builder()
{
    static const CodeBuilder shared(std::make_shared<const BuildRules>(testFunctions()));
    return shared;
}

std::vector<std::string> printed(std::string_view source)
{
    RecordingInterface recorder;
    builder().linkStatements(builder().compileStatements(source).value()).execute(recorder);
    return recorder.lines;
}

std::string errorOf(std::string_view source)
{
    try {
        (void)builder().compileStatements(source);
        return "compiled";
    } catch (const CompilationException& error) {
        return describe(error, source);
    }
}

using Lines = std::vector<std::string>;

TEST(Overloads, AtTheSameDistanceAreAnError)
{
    EXPECT_EQ(errorOf("1 + either(1);"),
              "16 at 4+6: 'either': overloaded functions have similar conversions");
    EXPECT_EQ(errorOf("crossed(1, 1);"),
              "16 at 0+7: 'crossed': overloaded functions have similar conversions");
}

TEST(Overloads, WithExactlyTheTypesWin)
{
    EXPECT_EQ(
        printed("print(either(true)); print(either(1.5)); print(crossed(1, 1.5)); print(crossed(1.5, 1));"),
        (Lines{"bool", "double", "int, double", "double, int"}));
}

TEST(Overloads, WithTheFewestCastsWin)
{
    EXPECT_EQ(printed("print(nearest(1, 1)); print(nearest(1.5, 1)); print(nearest(1));"),
              (Lines{"int, double", "double, double", "int"}));
}

TEST(Overloads, ThatNoCastReachesAreAnError)
{
    EXPECT_EQ(errorOf("crossed(1.5, 1.5);"),
              "25 at 0+7: 'crossed': no overloaded function exists, check argument types");
    EXPECT_EQ(errorOf("nearest(true, 1.5);"),
              "25 at 0+7: 'nearest': no overloaded function exists, check argument types");
    EXPECT_EQ(errorOf("either('a');"),
              "25 at 0+6: 'either': no overloaded function exists, check argument types");
}

TEST(Overloads, TakeADoubleAsABoolThroughACast)
{
    EXPECT_EQ(printed("truth(1.5); truth(0.0); truth(2); truth(0);"),
              (Lines{"true", "false", "true", "false"}));
}

TEST(Calls, EvaluateTheirArgumentsFromTheLastToTheFirst)
{
    EXPECT_EQ(printed("print(three(trace(1), trace(2), trace(3)));"),
              (Lines{"3", "2", "1", "called", "123"}));
}

TEST(Calls, EvaluateTheirArgumentsInnermostCallsFirst)
{
    EXPECT_EQ(printed("three(trace(1), three(trace(2), trace(3), trace(4)), trace(5));"),
              (Lines{"5", "4", "3", "2", "called", "1", "called"}));
}

TEST(BinaryOperators, EvaluateTheRightOperandFirst)
{
    EXPECT_EQ(printed("trace(1) - trace(2);"), (Lines{"2", "1"}));
    EXPECT_EQ(printed("trace(1) - trace(2) + trace(3);"), (Lines{"3", "2", "1"}));
    EXPECT_EQ(printed("trace(1) * trace(2) - trace(3) * trace(4);"), (Lines{"4", "3", "2", "1"}));
}

TEST(BinaryOperators, EvaluateBothOperandsOfAndAndOr)
{
    EXPECT_EQ(printed("truth(false) && truth(true);"), (Lines{"true", "false"}));
    EXPECT_EQ(printed("truth(true) && truth(false);"), (Lines{"false", "true"}));
    EXPECT_EQ(printed("truth(true) || truth(false);"), (Lines{"false", "true"}));
    EXPECT_EQ(printed("truth(false) || truth(true);"), (Lines{"true", "false"}));
}

TEST(CommaOperator, EvaluatesTheLeftOperandFirst)
{
    EXPECT_EQ(printed("trace(1), trace(2), trace(3);"), (Lines{"1", "2", "3"}));
}

TEST(DeviceFunctions, ComeBeforeTheLibrary)
{
    EXPECT_EQ(printed("print(sin(1));"), (Lines{"not the sine"}));
    EXPECT_EQ(errorOf("sin(1.5);"), "25 at 0+3: 'sin': no overloaded function exists, check argument types");
}

TEST(Overload, RefusesAnotherNumberOfLinkedArguments)
{
    for (const auto& rule : constructFunctionRules())
        for (const FunctionOverload& overload : rule->overloads())
            for (std::size_t count = 0; count < 4; ++count) {
                if (count == overload->argumentTypes().size())
                    continue;
                std::vector<LinkedExpression> arguments;
                for (std::size_t i = 0; i < count; ++i)
                    arguments.emplace_back();
                try {
                    (void)overload->createExpression(std::move(arguments));
                    ADD_FAILURE() << rule->name() << " takes " << count << " arguments";
                } catch (const std::runtime_error& failure) {
                    EXPECT_STREQ(failure.what(), "invalid number of arguments to function");
                }
            }
}

std::string signatureOf(const AbstractFunctionOperatorImpl& overload)
{
    std::string signature = "(";
    for (const DataType type : overload.argumentTypes())
        signature += concatenated({signature.size() > 1 ? ", " : "", typeName(type)});
    return concatenated({signature, ") ", typeName(overload.returnType())});
}

TEST(Library, HasTheFunctionsAndOverloadsOfItsTableInTheirOrder)
{
    const std::string one = "(double) double";
    const std::string two = "(double, double) double";
    const std::string ordered = "(int, int) int; (double, double) double; (int64_t, int64_t) int64_t; "
                                "(uint64_t, uint64_t) uint64_t";
    const std::pair<std::string_view, std::string> expected[] = {
        {"abs", one},
        {"acos", one},
        {"acosh", one},
        {"asin", one},
        {"asinh", one},
        {"atan", one},
        {"atan2", two},
        {"atanh", one},
        {"cbrt", one},
        {"ceil", one},
        {"cos", one},
        {"cosh", one},
        {"erf", one},
        {"erfc", one},
        {"exp", one},
        {"exp2", one},
        {"floor", one},
        {"lgamma", one},
        {"log", one},
        {"log10", one},
        {"log2", one},
        {"pow", two},
        {"round", one},
        {"sin", one},
        {"sinh", one},
        {"sqrt", one},
        {"tan", one},
        {"tanh", one},
        {"tgamma", one},
        {"trunc", one},
        {"max", ordered},
        {"min", ordered},
        {"print", "(string) void; (int) void; (double) void; (bool) void; (int64_t) void; (uint64_t) void"},
        {"format", "(string, string) string; (string, int) string; (string, double) string; "
                   "(string, bool) string; (string, int64_t) string; (string, uint64_t) string"},
    };
    const FunctionRules rules = constructFunctionRules();
    ASSERT_EQ(rules.size(), std::size(expected));
    for (std::size_t i = 0; i < rules.size(); ++i) {
        EXPECT_EQ(rules[i]->name(), expected[i].first);
        std::string signatures;
        for (const FunctionOverload& overload : rules[i]->overloads())
            signatures += concatenated({signatures.empty() ? "" : "; ", signatureOf(*overload)});
        EXPECT_EQ(signatures, expected[i].second) << rules[i]->name();
    }
}

} // namespace
