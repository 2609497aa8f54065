#include "actionlanguage/tokens/diagnostic.h"
#include "actionlanguage/tokens/compilationexception.h"

namespace {

struct Message
{
    std::uint32_t code;
    std::string_view text; // with "@" for the blamed characters
};

constexpr Message errorMessages[] = {
    {0, "'@' left hand side requires identifier"},
    {1, "assignment '@': no matching operator found for operands (or there is no acceptable conversion)"},
    {2, "binary '@': no matching operator found for operands (or there is no acceptable conversion)"},
    {3, "'@': you cannot assign to a variable that is const"},
    {4, "syntax error: '@' was unexpected; expected '}'"},
    {5, "syntax error: '@' was unexpected; expected ')'"},
    {6, "expected conditional expression"},
    {7, "syntax error: '@' was unexpected; expected 'expression'"},
    {8, "syntax error: expected expression after '@'"},
    {9, "syntax error: expected expression before '@'"},
    {10, "syntax error: '@' was unexpected; expected '{'"},
    {11, "syntax error: '@' was unexpected; expected '('"},
    {12, "syntax error: '@' was unexpected; expected ';'"},
    {13, "expected ';'"},
    {14, "syntax error: '@' was unexpected; expected 'while'"},
    {15, "syntax error: function call '@' missing close ')'"},
    {16, "'@': overloaded functions have similar conversions"},
    {17, "identifier expected"},
    {18, "'@': identifier not found"},
    {19, "invalid cast"},
    {20, "syntax error: '@' was unexpected; expected 'expression'"},
    {21, "'@': invalid string literal"},
    {22, "missing close ')'"},
    {23, "'@': nees l-value"},
    {24, "newline in constant"},
    {25, "'@': no overloaded function exists, check argument types"},
    {26, "'@': no conversion for operator argument types"},
    {27, "'@': too many characters in char constant"},
    {28, "'@': unable to determine expression result type"},
    {29, "unary '@': no matching operator found for operand (or there is no acceptable conversion)"},
    {30, "'@': undeclared identifier"},
    {31, "unexpected end of file"},
    {32, "unexpected end of file found in comment"},
    {33, "unexpected keyword '@'"},
    {34, "unexpected specifier '@'"},
    {35, "unexpected token '@'"},
    {36, "'@': cannot be used before it is initialised"},
    {37, "unknown token '@'"},
    {38, "unsupported direct initialisation"},
    {39, "unsupported initialiser format"},
    {40, "unsupported literal '@'"},
    {41, "unsupported operator '@'"},
    {42, "unsupported specifier '@'"},
    {43, "'@': redefinition"},
    {44, "unknown error"},
    {1000, "unknown error"},
    {0xffffffff, "unknown error"},
};

constexpr Message warningMessages[] = {
    {0, "'initialising': conversion from 'double' to 'bool', possible loss of data"},
    {1, "'initialising': truncation from 'double' to 'bool'"},
    {2, "'initialising': truncation from 'int' to 'bool'"},
    {3, "'@': unsafe mix of type 'bool' and type 'char' in operation"},
    {4, "'@': unsafe mix of type 'bool' and type 'double' in operation"},
    {5, "'@': unsafe mix of type 'bool' and type 'int' in operation"},
    {6, "'@' is not used"},
    {7, "'@': unrecognised character escape sequence"},
    {8, "unknown warning"},
    {1000, "unknown warning"},
};

std::string filled(std::string_view text, std::string_view blamed)
{
    std::string result(text);
    if (const auto place = result.find('@'); place != std::string::npos)
        result.replace(place, 1, blamed);
    return result;
}

TEST(ErrorText, IsThatOfTheTableForEveryCode)
{
    for (const Message& message : errorMessages)
        for (const std::string_view blamed : {"", "x", "some text", "{}", "{0} {", "}"})
            EXPECT_EQ(errorText(message.code, blamed), filled(message.text, blamed)) << message.code;
}

TEST(WarningText, IsThatOfTheTableForEveryCode)
{
    for (const Message& message : warningMessages)
        for (const std::string_view blamed : {"", "x", "some text", "{}", "{0} {", "}"})
            EXPECT_EQ(warningText(message.code, blamed), filled(message.text, blamed)) << message.code;
}

TEST(BlamedText, IsThePartOfTheSourceAtTheSpan)
{
    EXPECT_EQ(blamedText("some text", {5, 4}), "text");
    EXPECT_EQ(blamedText("some text", {0, 0}), "");
}

TEST(BlamedText, EndsWithTheSource)
{
    EXPECT_EQ(blamedText("some text", {5, 100}), "text");
    EXPECT_EQ(blamedText("some text", {9, 1}), "");
}

TEST(BlamedText, IsEmptyForAnUnknownPlace)
{
    EXPECT_EQ(blamedText("some text", {positionUnknown, 0}), "");
    EXPECT_EQ(blamedText("", {positionUnknown, 1}), "");
}

TEST(BlamedText, IsOutOfRangeWhenTheSpanStartsPastTheEnd)
{
    EXPECT_THROW((void)blamedText("some text", {10, 1}), std::out_of_range);
    EXPECT_THROW((void)blamedText("", {1, 0}), std::out_of_range);
}

TEST(CompilationException, AlwaysSaysCompilationErrorAsWhat)
{
    const CompilationException error(static_cast<LanguageError>(30), {4, 1});
    EXPECT_STREQ(error.what(), "compilation error");
    EXPECT_STREQ(RequiresPositionException(static_cast<LanguageError>(35)).what(), "compilation error");
}

TEST(CompilationException, WordsItselfWithTheCharactersThatItBlames)
{
    const CompilationException error(static_cast<LanguageError>(30), {4, 1});
    EXPECT_EQ(error.message("a = b;"), "'b': undeclared identifier");
    EXPECT_EQ(error.message("c = d;"), "'d': undeclared identifier");
    EXPECT_EQ(error.span(), (SourceSpan{4, 1}));
}

TEST(CompilationException, IsOutOfRangeWhenItIsWordedWithAShorterSource)
{
    const CompilationException error(static_cast<LanguageError>(30), {4, 1});
    EXPECT_THROW((void)error.message("abc"), std::out_of_range);
}

TEST(CompilationException, OfAnUnknownPlaceBlamesTheEndOfTheText)
{
    const CompilationException error(static_cast<LanguageError>(20), {positionUnknown, 0});
    EXPECT_EQ(error.message("a b"), "syntax error: '' was unexpected; expected 'expression'");
}

} // namespace
