#include "actionlanguage/tokens/tokenstream.h"
#include "actionlanguage/tokens/tokeniser.h"

namespace {

class TokenStreamOf : public testing::Test
{
protected:
    std::string_view source = "a + ;";
    std::vector<Diagnostic> diagnostics;
    std::vector<Token> tokens = tokenise(source, diagnostics);
    TokenStream stream{tokens, source};
};

TEST_F(TokenStreamOf, AFewTokensStartsWithNothingConsumed)
{
    EXPECT_EQ(stream.next().text(), "a");
    EXPECT_EQ(stream.current().kind(), TokenKind::fileEnd);
    EXPECT_FALSE(stream.atEnd());
}

TEST_F(TokenStreamOf, AFewTokensPeeksWithoutMoving)
{
    EXPECT_EQ(stream.next().text(), "a");
    EXPECT_EQ(stream.next().text(), "a");
}

TEST_F(TokenStreamOf, AFewTokensAdvancesToEachOfThem)
{
    for (const std::string_view text : {"a", "+", ";"}) {
        EXPECT_EQ(stream.next().text(), text);
        stream.advance();
        EXPECT_EQ(stream.current().text(), text);
    }
    EXPECT_TRUE(stream.atEnd());
}

TEST_F(TokenStreamOf, AFewTokensTellsWhetherThePunctuatorAheadIsTheOne)
{
    EXPECT_FALSE(stream.nextIs(static_cast<PunctuatorId>(42)));
    stream.advance();
    EXPECT_TRUE(stream.nextIs(static_cast<PunctuatorId>(42)));
    EXPECT_FALSE(stream.nextIs(static_cast<PunctuatorId>(45)));
}

TEST_F(TokenStreamOf, AFewTokensReadsTheFileEndBehindThemForEver)
{
    for (int i = 0; i < 10; ++i)
        stream.advance();
    EXPECT_EQ(stream.next().kind(), TokenKind::fileEnd);
    EXPECT_EQ(stream.next().position(), source.size());
    EXPECT_EQ(stream.next().text(), "");
    EXPECT_FALSE(stream.nextIs(static_cast<PunctuatorId>(45)));
}

TEST(TokenStreamOfNothing, ReadsTheFileEnd)
{
    TokenStream stream({}, "");
    EXPECT_TRUE(stream.atEnd());
    EXPECT_EQ(stream.next().kind(), TokenKind::fileEnd);
    EXPECT_EQ(stream.current().kind(), TokenKind::fileEnd);
    EXPECT_EQ(stream.advance().kind(), TokenKind::fileEnd);
    EXPECT_EQ(stream.next().position(), 0u);
}

} // namespace
