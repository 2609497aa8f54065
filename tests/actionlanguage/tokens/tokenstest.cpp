// Runs the cases of cases/*.cases:
//
//   source     the text
//   tokens     a line a token: KIND[:ID] POSITION TEXT
//   finding    CODE at POSITION+LENGTH, for each diagnostic
//   exhausts   the position of the byte on which the tokeniser gives up

#include "actionlanguage/tokens/compilationexception.h"
#include "actionlanguage/tokens/tokeniser.h"
#include "support/casefile.h"
#include "testfolders.h"

namespace {

struct Tokenised
{
    std::vector<Token> tokens;
    std::vector<Diagnostic> diagnostics;
};

Tokenised tokenised(std::string_view source)
{
    Tokenised result;
    result.tokens = tokenise(source, result.diagnostics);
    return result;
}

std::string idText(auto id)
{
    return ":" + std::to_string(static_cast<std::uint32_t>(id));
}

std::string describe(const Token& token)
{
    const std::string rest = " " + std::to_string(token.position()) + " " + std::string(token.text());
    switch (token.kind()) {
    case TokenKind::identifier:
        return "identifier" + rest;
    case TokenKind::keyword:
        return "keyword" + idText(token.keyword()) + rest;
    case TokenKind::literal:
        return "literal" + idText(token.literal()) + rest;
    case TokenKind::punctuator:
        return "punctuator" + idText(token.punctuator()) + rest;
    case TokenKind::fileEnd:
        return "file end" + rest;
    }
    return "no kind" + rest;
}

std::string describe(const Diagnostic& finding)
{
    return std::to_string(finding.code) + " at " + std::to_string(finding.position) + "+" +
           std::to_string(finding.length);
}

std::string joinedLines(const std::vector<Token>& tokens)
{
    std::string text;
    for (const Token& token : tokens)
        text += (text.empty() ? "" : "\n") + describe(token);
    return text;
}

class TokenCase : public testing::TestWithParam<TestCase>
{};

TEST_P(TokenCase, Holds)
{
    SCOPED_TRACE(GetParam().place());
    const std::string source = GetParam().at("source");
    if (GetParam().has("exhausts")) {
        try {
            (void)tokenised(source);
            FAIL() << "comes to an end";
        } catch (const std::bad_alloc& failure) {
            EXPECT_STREQ(failure.what(), "bad allocation");
            const auto* placed = dynamic_cast<const TokeniserAllocationFailure*>(&failure);
            ASSERT_NE(placed, nullptr);
            EXPECT_EQ(std::to_string(placed->position()), GetParam().at("exhausts"));
        }
        return;
    }
    const Tokenised result = tokenised(source);
    EXPECT_EQ(joinedLines(result.tokens), GetParam().at("tokens"));
    std::vector<std::string> findings;
    for (const Diagnostic& finding : result.diagnostics)
        findings.push_back(describe(finding));
    EXPECT_EQ(findings, GetParam().all("finding"));
    for (const Token& token : result.tokens)
        EXPECT_EQ(token.text().data(), source.data() + token.position()) << "not a view into the source";
}

INSTANTIATE_TEST_SUITE_P(Cases, TokenCase, testing::ValuesIn(readCaseFolder(TEST_SOURCE_FOLDER "/cases")),
                         [](const auto& given) { return identifierOf(given.param); });

TEST(Tokeniser, KnowsTheKeywordsByTheirIds)
{
    constexpr std::string_view words[] = {
        "auto",  "bool",     "break",  "case",     "char",   "const",   "continue", "default",
        "do",    "double",   "else",   "enum",     "extern", "false",   "float",    "for",
        "goto",  "if",       "inline", "int",      "long",   "nullptr", "register", "return",
        "short", "signed",   "sizeof", "static",   "struct", "switch",  "true",     "typedef",
        "union", "unsigned", "void",   "volatile", "while",
    };
    ASSERT_EQ(std::size(words), 37u);
    for (std::size_t id = 0; id < std::size(words); ++id) {
        const std::string word(words[id]);
        EXPECT_EQ(joinedLines(tokenised(word).tokens), "keyword:" + std::to_string(id) + " 0 " + word);
        EXPECT_EQ(joinedLines(tokenised(word + "_").tokens), "identifier 0 " + word + "_");
        EXPECT_EQ(joinedLines(tokenised("x" + word).tokens), "identifier 0 x" + word);
        EXPECT_EQ(joinedLines(tokenised("\"" + word + "\"").tokens), "literal:1 0 \"" + word + "\"");
    }
}

TEST(Tokeniser, KnowsThePunctuatorsByTheirIds)
{
    constexpr std::string_view texts[] = {
        "&",  "&&", "*",  "<<",  "",    "}",  "{",  "]",  "[", "^",  ":",  ",", "&=", "/=", "-=", "%=",
        "*=", "|=", "+=", "<<=", ">>=", "^=", "--", "==", "=", "/",  "##", "!", ".",  ">",  ">=", "++",
        "!=", "<",  "<=", "-",   "#",   "||", ")",  "(",  "%", "->", "+",  "?", "::", ";",  "~",  "|",
    };
    ASSERT_EQ(std::size(texts), 48u);
    for (std::size_t id = 0; id < std::size(texts); ++id) {
        const std::string text(texts[id]);
        if (text.empty())
            continue;
        const std::string expected = "punctuator:" + std::to_string(id) + " 0 " + text;
        EXPECT_EQ(joinedLines(tokenised(text).tokens), expected);
        EXPECT_EQ(joinedLines(tokenised(text + " ").tokens), expected);
        EXPECT_EQ(joinedLines(tokenised(text + "a").tokens),
                  expected + "\nidentifier " + std::to_string(text.size()) + " a");
    }
}

TEST(Tokeniser, NeverGivesTheReservedIdOfShiftRight)
{
    for (const std::string_view text : {">>", "a>>b", ">>>", "> >", ">><", ">>="})
        for (const Token& token : tokenised(text).tokens)
            if (token.kind() == TokenKind::punctuator) {
                EXPECT_NE(static_cast<std::uint32_t>(token.punctuator()), 4u) << text;
            }
}

/// Bytes that no token begins with: 0 to 8, 14 to 31, "$", "@", backslash, backquote, 127 and above.
bool isOfNoClass(int byte)
{
    return byte <= 8 || (byte >= 14 && byte <= 31) || byte == '$' || byte == '@' || byte == '\\' ||
           byte == '`' || byte >= 127;
}

TEST(Tokeniser, GivesUpOnEveryByteOfNoClassAndOnNoOther)
{
    for (int byte = 0; byte < 256; ++byte) {
        const std::string source = "ab " + std::string(1, static_cast<char>(byte));
        if (isOfNoClass(byte)) {
            EXPECT_THROW((void)tokenised(source), TokeniserAllocationFailure) << byte;
        } else {
            EXPECT_NO_THROW((void)tokenised(source)) << byte;
        }
    }
}

TEST(Tokeniser, DoesNotPutAByteOfNoClassOnTheList)
{
    std::vector<Diagnostic> diagnostics;
    EXPECT_THROW((void)tokenise("int x; \x01", diagnostics), std::bad_alloc);
    EXPECT_TRUE(diagnostics.empty());
}

TEST(Tokeniser, TakesEveryByteInAStringButTheNewline)
{
    for (int byte = 0; byte < 256; ++byte) {
        const std::string source = std::string("\"a") + static_cast<char>(byte) + "b\"";
        const Tokenised result = tokenised(source);
        EXPECT_EQ(result.diagnostics.size(), byte == '\n' ? 1u : 0u) << byte;
        if (byte != '\n' && byte != '"') {
            ASSERT_EQ(result.tokens.size(), 1u) << byte;
            EXPECT_EQ(result.tokens.front().text(), source) << byte;
        }
    }
}

TEST(Tokeniser, AppendsToTheDiagnosticsThatAreThere)
{
    std::vector<Diagnostic> diagnostics{{99, 1, 2}};
    (void)tokenise("/*", diagnostics);
    EXPECT_EQ(diagnostics, (std::vector<Diagnostic>{{99, 1, 2}, {32, 2, 0}}));
}

TEST(Tokeniser, MakesRoomForOneTokenInSixBytes)
{
    EXPECT_GE(tokenised(std::string(6000, 'a')).tokens.capacity(), 1000u);
    EXPECT_EQ(tokenised("").tokens.capacity(), 0u);
}

TEST(Tokeniser, RefusesATextOfMoreTokensThanTheLimit)
{
    const std::string most(maximumTokens, ';');
    EXPECT_EQ(tokenised(most).tokens.size(), maximumTokens);
    try {
        (void)tokenised(most + "abc;");
        ADD_FAILURE() << "takes more";
    } catch (const TooManyTokensException& failure) {
        EXPECT_STREQ(failure.what(), "more than 2000000 tokens in one text");
        EXPECT_EQ(failure.span(), (SourceSpan{maximumTokens, 3}));
    }
}

TEST(Token, RefusesThePayloadOfAnotherKind)
{
    const std::vector<Token> tokens = tokenised("a int 1 ;").tokens;
    ASSERT_EQ(tokens.size(), 4u);
    EXPECT_THROW((void)tokens[0].keyword(), std::bad_variant_access);
    EXPECT_THROW((void)tokens[1].literal(), std::bad_variant_access);
    EXPECT_THROW((void)tokens[2].punctuator(), std::bad_variant_access);
    EXPECT_THROW((void)tokens[3].keyword(), std::bad_variant_access);
}

} // namespace
