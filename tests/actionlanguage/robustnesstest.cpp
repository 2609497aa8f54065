// Hostile texts: whatever they are, a compile ends soon, with a compiled form or a clear exception.

#include "languagetester.h"
#include "support/concatenated.h"
#include "support/jsontext.h"
#include "support/recordinginterface.h"

#include <random>

namespace {

constexpr int many = 100000;

std::string repeated(std::string_view text, int times)
{
    std::string result;
    result.reserve(text.size() * static_cast<std::size_t>(times));
    for (int i = 0; i < times; ++i)
        result += text;
    return result;
}

/// Whether a compiled form has a "for" that lacks a clause, which the linker refuses.
bool hasIncompleteFor(const JsonValue& form)
{
    if (form.isArray()) {
        for (const JsonValue& element : form.asArray())
            if (hasIncompleteFor(element))
                return true;
    } else if (form.isObject()) {
        if (form.has("rule") && form.member("rule").equals("for") &&
            !(form.has("init") && form.has("cond") && form.has("iter")))
            return true;
        for (const JsonMember& member : form.asObject())
            if (hasIncompleteFor(member.value))
                return true;
    }
    return false;
}

/// Runs `compile`, and checks that an error lies in the text and can be worded. Tells what `compile` told, or
/// false after an error.
template <class Compile>
bool endsWithin(const std::string& source, Compile compile)
{
    try {
        return compile();
    } catch (const CompilationException& error) {
        EXPECT_FALSE(error.message(source).empty());
        const SourceSpan& span = error.span();
        EXPECT_TRUE(span.position == positionUnknown || span.end() <= source.size())
            << describe(error, source);
    } catch (const TokeniserAllocationFailure& failure) {
        EXPECT_LT(failure.position(), source.size());
    } catch (const LiteralConversionException& failure) {
        EXPECT_LE(failure.span().end(), source.size());
    }
    return false;
}

/// As statements: what compiles also links. Tells whether it compiled.
bool endsWell(const std::string& source)
{
    return endsWithin(source, [&] {
        const CompileResult result = languageBuilder().compileStatements(source);
        for (const Diagnostic& warning : result.warnings())
            EXPECT_FALSE(describeWarning(warning, source).empty());
        if (!result.hasValue()) {
            EXPECT_FALSE(result.findings().empty());
            return false;
        }
        if (hasIncompleteFor(result.value())) {
            EXPECT_THROW((void)languageBuilder().linkStatements(result.value()), JsonTypeException);
        } else {
            EXPECT_NO_THROW((void)languageBuilder().linkStatements(result.value()));
        }
        return true;
    });
}

/// As a condition or an expression.
void endsWellAs(CompileResult (CodeBuilder::*compile)(std::string_view) const, const std::string& source)
{
    endsWithin(source, [&] { return (languageBuilder().*compile)(source).hasValue(); });
}

constexpr std::string_view smallAction =
    "const int x = 1; if (x < 2) { print(\"a\\n\"); } else y(1, 'b'); int64_t z = 3; z <<= x + .5e1; // end";

TEST(AnyByte, InThePlaceOfAnyOtherEndsWell)
{
    for (std::size_t place = 0; place < smallAction.size(); ++place)
        for (int byte = 0; byte < 256; ++byte) {
            std::string source(smallAction);
            source[place] = static_cast<char>(byte);
            endsWell(source);
            ASSERT_FALSE(HasFailure()) << "byte " << byte << " at " << place;
        }
}

TEST(AnyByte, BetweenAnyOthersEndsWell)
{
    for (std::size_t place = 0; place <= smallAction.size(); ++place)
        for (int byte = 0; byte < 256; ++byte) {
            std::string source(smallAction);
            source.insert(place, 1, static_cast<char>(byte));
            endsWell(source);
            ASSERT_FALSE(HasFailure()) << "byte " << byte << " before " << place;
        }
}

TEST(AnyByte, TakenOutEndsWell)
{
    for (std::size_t place = 0; place < smallAction.size(); ++place)
        for (std::size_t length = 1; length <= smallAction.size() - place; ++length) {
            std::string source(smallAction);
            source.erase(place, length);
            endsWell(source);
            ASSERT_FALSE(HasFailure()) << length << " at " << place;
        }
}

TEST(AnyByte, AsAConditionOrAnExpressionEndsWell)
{
    for (int first = 0; first < 256; ++first)
        for (int second = 0; second < 256; ++second) {
            const std::string source = {static_cast<char>(first), static_cast<char>(second)};
            endsWellAs(&CodeBuilder::compileCondition, source);
            endsWellAs(&CodeBuilder::compileExpression, source);
        }
}

TEST(AnyTokens, InAnyOrderEndWell)
{
    constexpr std::string_view words[] = {
        "x",        "y",  "1",   "2.5",   "'c'",    "\"s\"",  "true", "int ",       "const ", "string ",
        "int64_t ", "if", "(",   ")",     "{",      "}",      "[",    "]",          ";",      ",",
        "=",        "+",  "-",   "++",    "--",     "*",      "/",    "%",          "<<",     ">>",
        "<",        "==", "&&",  "!",     "~",      "+=",     "^=",   "sin",        "max",    "print",
        "while",    "do", "for", "else ", "?",      ":",      ".",    "->",         "#",      "void",
        "long",     "\"", "'",   "\\\"",  "return", "x = 1;", "(1)",  "int x = 1;", "\n",     "",
    };
    std::mt19937 random(20240229);
    int compiled = 0;
    for (int round = 0; round < 60000; ++round) {
        std::string source = round % 3 == 0 ? "int x = 1; " : "";
        for (auto length = random() % 12; length > 0; --length) {
            source += words[random() % std::size(words)];
            source += random() % 4 == 0 ? " " : "";
        }
        try {
            compiled += endsWell(source);
        } catch (const std::exception& failure) {
            ADD_FAILURE() << failure.what();
        }
        ASSERT_FALSE(HasFailure()) << source;
    }
    EXPECT_GT(compiled, 1000) << "the texts should reach the rules";
}

/// A text as head, a part that repeats, middle, another part that repeats, and tail. It is put together in
/// the test that needs it.
struct HostileText
{
    const char* name;
    std::string_view head;
    std::string_view open;
    std::string_view middle;
    std::string_view close;
    std::string_view tail;

    std::string text() const
    {
        return concatenated({head, repeated(open, many), middle, repeated(close, many), tail});
    }
};

void PrintTo(const HostileText& hostile, std::ostream* output)
{
    *output << hostile.name;
}

constexpr HostileText hostileTexts[] = {
    {"open_parentheses", "", "(", "", "", ""},
    {"closing_parentheses", "", ")", "", "", ""},
    {"parentheses", "", "(", "1", ")", ";"},
    {"parentheses_around_sums", "", "(1 + ", "1", ")", ";"},
    {"empty_parentheses", "", "(", "", ")", ";"},
    {"open_brackets_of_all_kinds", "x = ", "([{", "", "", ""},
    {"brackets_of_all_kinds", "x = ", "([{", "1", "}])", ";"},
    {"open_blocks", "", "{", "", "", ""},
    {"blocks", "", "{", "", "}", ""},
    {"blocks_side_by_side", "", "{}", "", "", ""},
    {"blocks_with_a_variable", "", "{ int x; }", "", "", ""},
    {"minuses", "", "- ", "1", "", ";"},
    {"pluses", "", "+ ", "1", "", ";"},
    {"nots", "", "!", "true", "", ";"},
    {"complements", "", "~", "1", "", ";"},
    {"increments", "", "++", "x", "", ";"},
    {"suffix_increments", "", "", "x", "++", ";"},
    {"open_calls", "", "sin(", "", "", ""},
    {"calls", "", "sin(", "1.5", ")", ";"},
    {"calls_as_the_first_argument", "", "max(", "1", ", 1)", ";"},
    {"calls_as_the_second_argument", "", "max(1, ", "1", ")", ";"},
    {"calls_of_alternating_functions", "", "sin(cos(", "1.5", "))", ";"},
    {"arguments", "max(", "1, ", "1", "", ");"},
    {"a_sum", "", "1 + ", "1", "", ";"},
    {"a_sum_of_calls", "", "sin(1.5) + ", "1", "", ";"},
    {"a_sum_and_a_difference", "", "1 + 1 - ", "1", "", ";"},
    {"a_product_of_unary_minuses", "", "-1 * ", "1", "", ";"},
    {"all_binary_operators", "", "1 * 2 / 3 % 4 + 5 - 6 << 7 >> 8 & 9 ^ 10 | ", "1", "", ";"},
    {"operators_without_operands", "", "* ", "", "", ";"},
    {"assignments", "int x; ", "x = ", "1", "", ";"},
    {"compound_assignments", "int x; ", "x += ", "1", "", ";"},
    {"commas", "", "1, ", "1", "", ";"},
    {"commas_alone", "1", ",", "", "", ";"},
    {"ifs", "", "if (1) ", "", "", ";"},
    {"elses", "", "if (1) ; else ", "", "", ";"},
    {"ifs_and_elses", "", "if (1) ", ";", " else ;", ""},
    {"whiles", "", "while (0) ", "", "", ";"},
    {"dos", "", "do ", ";", " while (0);", ""},
    {"open_dos", "", "do ", "", "", ""},
    {"fors", "", "for (;;) ", "", "", ";"},
    {"statements", "", "1; ", "", "", ""},
    {"null_statements", "", ";", "", "", ""},
    {"specifiers", "", "const ", "int x", "", ";"},
    {"identifiers", "", "x ", "", "", ";"},
    {"literals", "", "1 ", "", "", ";"},
    {"chars", "", "'a' ", "", "", ";"},
    {"keywords", "", "return ", "", "", ""},
    {"a_long_identifier", "", "x", "", "", ";"},
    {"a_long_number", "", "9", "", "", ";"},
    {"a_long_fraction", "", "9", ".5", "", ";"},
    {"a_long_string", "\"", "text", "", "", "\";"},
    {"a_long_comment", "// ", "text\\\n", "", "", ""},
    {"unknown_escapes", "\"", "\\q", "", "", "\";"},
    {"quotes", "", "\"", "", "", ""},
    {"newlines_in_strings", "", "\"\n", "", "", ""},
    {"comment_openers", "", "/*", "", "", ""},
    {"slashes_and_stars", "", "/ * ", "", "", ""},
    {"type_words_in_parentheses", "(", "int ", "", "", ")1;"},
    {"pairs_behind_a_literal", "1", "(1)", "", "", ";"},
    {"pairs_behind_operators", "", "(1) + ", "1", "", ";"},
    {"blanks", "", " ", "", "", ""},
};

class HostileTexts : public testing::TestWithParam<HostileText>
{};

TEST_P(HostileTexts, EndWell)
{
    endsWell(GetParam().text());
}

TEST_P(HostileTexts, EndWellAsACondition)
{
    endsWellAs(&CodeBuilder::compileCondition, GetParam().text());
}

INSTANTIATE_TEST_SUITE_P(Robustness, HostileTexts, testing::ValuesIn(hostileTexts),
                         [](const auto& given) { return std::string(given.param.name); });

/// Deep and wide at once: the product is what would take memory and time.
TEST(DeepAndWide, IsItsOwnError)
{
    const std::string ones = repeated("1,", 10000) + "1";
    for (const std::string& source :
         {concatenated({repeated("sin(", 900), ones, repeated(")", 900), ";"}),
          concatenated({repeated("max(", 900), ones, repeated(",1)", 900), ";"}),
          concatenated({repeated("(", 900), repeated("1 ", 10000), repeated(")", 900), ";"})}) {
        try {
            (void)languageBuilder().compileStatements(source);
            ADD_FAILURE() << "compiles";
        } catch (const NestingException& error) {
            EXPECT_THAT(error.message(source), testing::EndsWith(": nested too deeply"));
        }
    }
}

TEST(DeepAndWide, OfHonestSizeCompiles)
{
    EXPECT_TRUE(
        endsWell(concatenated({repeated("(", 20), "1", repeated(" + 1", 900), repeated(")", 20), ";"})));
    EXPECT_TRUE(endsWell(concatenated({"1", repeated(", max(1, (2))", 900), ";"})));
}

TEST(ManyVariables, EndWell)
{
    std::string source;
    for (int i = 0; i < 5000; ++i)
        source += concatenated({"int x", std::to_string(i), " = ", std::to_string(i), "; "});
    EXPECT_TRUE(endsWell(source + "x4999;"));
}

struct NestingText
{
    const char* name;
    std::string open;
    std::string middle;
    std::string close;
    int deepest; ///< the last depth that compiles
};

void PrintTo(const NestingText& nesting, std::ostream* output)
{
    *output << nesting.name;
}

class Nesting : public testing::TestWithParam<NestingText>
{
protected:
    static std::string nested(int depth)
    {
        return concatenated(
            {repeated(GetParam().open, depth), GetParam().middle, repeated(GetParam().close, depth), ";"});
    }
};

TEST_P(Nesting, OfHonestDepthCompilesLinksAndRuns)
{
    EXPECT_NO_THROW((void)printedBy(nested(60)));
}

TEST_P(Nesting, OfHostileDepthIsItsOwnError)
{
    const std::string source = nested(many);
    try {
        (void)languageBuilder().compileStatements(source);
        FAIL() << "compiles";
    } catch (const NestingException& error) {
        EXPECT_STREQ(error.what(), "compilation error");
        EXPECT_EQ(error.code(), LanguageError::nestedTooDeeply);
        ASSERT_LE(error.span().end(), source.size());
        const std::string blamed = source.substr(error.span().position, error.span().length);
        EXPECT_EQ(error.message(source), concatenated({"'", blamed, "': nested too deeply"}));
    }
}

TEST_P(Nesting, HasItsLimitWhereItIsDocumented)
{
    EXPECT_NO_THROW((void)languageBuilder().compileStatements(nested(GetParam().deepest)));
    EXPECT_THROW((void)languageBuilder().compileStatements(nested(GetParam().deepest + 1)), NestingException);
}

/// Whatever compiles must also be written, read, linked and run: the limits of the passes fit each other.
TEST_P(Nesting, OfAnyDepthThatCompilesAlsoLinksAndRuns)
{
    for (int depth = GetParam().deepest; depth > 0; depth -= 1 + depth / 3) {
        RecordingInterface recorder;
        const CompileResult compiled = languageBuilder().compileStatements(nested(depth));
        const JsonValue form = jsonOf(toString(compiled.value()));
        EXPECT_EQ(form, compiled.value());
        EXPECT_NO_THROW(languageBuilder().linkStatements(form).execute(recorder)) << depth;
    }
}

INSTANTIATE_TEST_SUITE_P(
    Robustness, Nesting,
    testing::Values(NestingText{"parentheses_around_unary_operators", "-(", "1", ")", 999},
                    NestingText{"parentheses", "(", "1", ")", 999}, NestingText{"blocks", "{", "", "}", 1000},
                    NestingText{"unary_operators", "- ", "1", "", 999},
                    NestingText{"calls", "sin(", "1.5", ")", 999},
                    NestingText{"ifs", "if (true) ", "", "", 999},
                    NestingText{"elses", "if (false) ; else ", "", "", 999},
                    NestingText{"loops", "while (false) ", "", "", 999},
                    NestingText{"dos", "do ", "", "; while (false)", 999}),
    [](const auto& given) { return std::string(given.param.name); });

TEST(StatementsAndExpressions, NestedDeeplyAtOnceCompileLinkAndRun)
{
    for (const auto& [open, close] :
         {std::pair("sin(", ")"), std::pair("(1.5 + ", ")"), std::pair("- ", "")}) {
        const std::string source = concatenated({repeated("if (true) {", 450), repeated(open, 900), "1.5",
                                                 repeated(close, 900), ";", repeated("}", 450)});
        RecordingInterface recorder;
        const CompileResult compiled = languageBuilder().compileStatements(source);
        const JsonValue form = jsonOf(toString(compiled.value()));
        EXPECT_NO_THROW(languageBuilder().linkStatements(form).execute(recorder)) << open;
    }
}

/// Links and runs a form; what the linker says against it, or nothing.
template <class LinkAndRun>
std::string refusal(LinkAndRun linkAndRun)
{
    try {
        linkAndRun();
        return "";
    } catch (const std::runtime_error& failure) {
        return failure.what();
    }
}

class DeepForms : public testing::TestWithParam<int>
{
protected:
    static void expectOutcome(const std::string& refused)
    {
        EXPECT_EQ(refused, GetParam() > 2002 ? "compiled code is nested too deeply" : "");
    }

    static void expectStatements(std::string_view open, std::string_view middle, std::string_view close)
    {
        const std::string form = concatenated({R"({"statements": [)", repeated(open, GetParam()), middle,
                                               repeated(close, GetParam()), R"(], "variables": {}})"});
        RecordingInterface recorder;
        expectOutcome(refusal([&] { languageBuilder().linkStatements(jsonOf(form)).execute(recorder); }));
    }
};

TEST_P(DeepForms, OfBlocksLinkUpToTheLimit)
{
    expectStatements("[", "", "]");
}

TEST_P(DeepForms, OfBranchesLinkUpToTheLimit)
{
    expectStatements(R"({"rule": "if", "cond": true, "onTrue": )", "[]", "}");
}

TEST_P(DeepForms, OfOperatorsLinkUpToTheLimit)
{
    const std::string form =
        concatenated({repeated(R"({"rule": "unop", "op": "-", "type": "double", "expr": )", GetParam()),
                      "1.5", repeated("}", GetParam())});
    RecordingInterface recorder;
    expectOutcome(refusal([&] {
        const LinkedExpression linked = languageBuilder().linkExpression(jsonOf(form));
        EXPECT_EQ(std::abs(linked.as<double>().evaluate(recorder)), 1.5);
    }));
}

INSTANTIATE_TEST_SUITE_P(Robustness, DeepForms, testing::Values(100, 1000, 2000, 2003, 4000));

} // namespace
