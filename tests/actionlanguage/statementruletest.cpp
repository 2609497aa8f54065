// What the statement rules say on their own: which tokens they begin with, and the failures that no text
// and no compiled form reach through the builder, since another rule takes it first.

#include "actionlanguage/buildrules.h"
#include "actionlanguage/statements/compoundstatementrule.h"
#include "actionlanguage/statements/dowhilerule.h"
#include "actionlanguage/statements/forrule.h"
#include "actionlanguage/statements/ifrule.h"
#include "actionlanguage/statements/nullstatementrule.h"
#include "actionlanguage/statements/simpledeclarationrule.h"
#include "actionlanguage/statements/whilerule.h"
#include "actionlanguage/tokens/tokeniser.h"
#include "languagetester.h"
#include "support/jsontext.h"

namespace {

/// The rules in their order: what each of them begins with.
constexpr std::string_view firstTokens[] = {
    "true false 1 1.5 'c' \"s\" & * -- ! ++ - ( + ~ name Int",
    "auto bool char const double enum extern float inline int long register short signed static struct "
    "typedef "
    "union unsigned void volatile int64_t string uint64_t",
    "{",
    "if",
    "for",
    "while",
    "do",
    ";",
};

constexpr std::string_view noFirstTokens = "break case continue default else goto nullptr return sizeof "
                                           "switch ) } [ ] , . / % < <= > >= >> << == != && "
                                           "|| | ^ = += -= *= /= %= <<= >>= &= ^= |= -> :: : ? # ##";

std::vector<Token> tokensOf(std::string_view source)
{
    std::vector<Diagnostic> diagnostics;
    return tokenise(source, diagnostics);
}

TEST(StatementRules, AreChosenByTheFirstTokenInTheirOrder)
{
    const BuildRules rules({});
    ASSERT_EQ(rules.statementRules().size(), std::size(firstTokens));
    for (std::size_t expected = 0; expected < std::size(firstTokens); ++expected)
        for (const Token& token : tokensOf(firstTokens[expected]))
            for (std::size_t rule = 0; rule < rules.statementRules().size(); ++rule)
                EXPECT_EQ(rules.statementRules()[rule]->matches(token), rule == expected)
                    << token.text() << " and rule " << rule;
}

TEST(StatementRules, AreNotChosenByAnyOtherToken)
{
    const BuildRules rules({});
    for (const Token& token : tokensOf(noFirstTokens))
        for (const StatementRule& rule : rules.statementRules())
            EXPECT_FALSE(rule->matches(token)) << token.text();
}

/// Rules that fail before they ask anything of the compiler, but for the scope that they open.
class UnusedCompiler : public AbstractCompiler
{
public:
    void addWarning(LanguageWarning, std::uint64_t, std::uint64_t) override { used(); }
    void addWarning(LanguageWarning, const SourceSpan&) override { used(); }
    ExpressionCompilationObject compileCondition(ItemStream&, bool) override { used(); }
    ExpressionCompilationObject compileCondition(TokenStream&, bool) override { used(); }
    ExpressionCompilationObject compileExpression(ItemStream&, bool) override { used(); }
    ExpressionCompilationObject compileExpression(TokenStream&, bool) override { used(); }
    ExpressionCompilationObject compileItem(ExpressionItem&, bool) override { used(); }
    JsonValue compileStatement(TokenStream&) override { used(); }
    std::string declareVariable(std::string_view, DataType, bool, const SourceSpan&) override { used(); }
    VariableReference lookUpVariable(const Token&, bool, bool) override { used(); }
    void popScope() override {}
    void pushScope() override {}
    void markInitialised(const std::string&) override { used(); }
    void setConst(const std::string&, bool) override { used(); }

private:
    [[noreturn]] static void used() { throw std::logic_error("the compiler was used"); }
};

class UnusedLinker : public AbstractLinker
{
public:
    LinkedExpression linkExpression(const JsonValue&) override { used(); }
    LinkedStatement linkStatement(const JsonValue&) override { used(); }
    const LinkedVariable& findVariable(std::string_view) const override { used(); }

private:
    [[noreturn]] static void used() { throw std::logic_error("the linker was used"); }
};

template <class Rule>
std::string compileError(std::string_view source)
{
    const std::vector<Token> tokens = tokensOf(source);
    TokenStream stream(tokens, source);
    UnusedCompiler compiler;
    try {
        (void)Rule().compile(stream, compiler);
        return "compiled";
    } catch (const CompilationException& error) {
        return describe(error, source);
    }
}

template <class Rule>
std::string linkError(const std::string& form)
{
    UnusedLinker linker;
    try {
        (void)Rule().link(jsonOf(form), linker);
        return "linked";
    } catch (const std::runtime_error& failure) {
        return failure.what();
    }
}

TEST(CompoundStatementRule, ExpectsItsBrace)
{
    EXPECT_EQ(compileError<CompoundStatementRule>("x"),
              "10 at 0+1: syntax error: 'x' was unexpected; expected '{'");
    EXPECT_EQ(compileError<CompoundStatementRule>(""),
              "10 at 0+0: syntax error: '' was unexpected; expected '{'");
}

TEST(NullStatementRule, ExpectsItsSemicolon)
{
    EXPECT_EQ(compileError<NullStatementRule>("x"),
              "12 at 0+1: syntax error: 'x' was unexpected; expected ';'");
}

TEST(LoopRules, ExpectTheirKeyword)
{
    EXPECT_EQ(compileError<WhileRule>("if"), "35 at 0+2: unexpected token 'if'");
    EXPECT_EQ(compileError<DoWhileRule>("if"), "35 at 0+2: unexpected token 'if'");
    EXPECT_EQ(compileError<ForRule>("if"), "35 at 0+2: unexpected token 'if'");
}

TEST(NullStatementRule, LinksNothingButNull)
{
    for (const char* form : {"1", "{}", "[]", "\"text\"", "false"})
        EXPECT_EQ(linkError<NullStatementRule>(form), "invalid compiled statement for null statement link");
    EXPECT_EQ(linkError<NullStatementRule>("null"), "linked");
}

TEST(IfRule, LinksNothingButIfAndIfWithElse)
{
    EXPECT_EQ(linkError<IfRule>(R"({"rule": "unless", "type": "some text"})"),
              "invalid type for 'if' linking: 'some text'");
}

TEST(SimpleDeclarationRule, LinksNothing)
{
    for (const char* form : {"null", "[]", R"({"rule": "expr"})", R"({"rule": "declaration"})"}) {
        EXPECT_FALSE(SimpleDeclarationRule().canLink(jsonOf(form)));
        EXPECT_EQ(linkError<SimpleDeclarationRule>(form), "cannot link simple declaration");
    }
}

TEST(LinkedExpression, ThatIsEmptyMakesNoExecutable)
{
    LinkedExpression empty;
    EXPECT_EQ(empty.type(), DataType::unknown);
    try {
        empty.visit([](auto&) {});
        ADD_FAILURE() << "visited";
    } catch (const std::runtime_error& failure) {
        EXPECT_STREQ(failure.what(), "invalid executable creation");
    }
}

} // namespace
