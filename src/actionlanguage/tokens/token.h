#ifndef TOKEN_H
#define TOKEN_H

#include "actionlanguage/tokens/diagnostic.h"
#include "actionlanguage/tokens/keywords.h"
#include "actionlanguage/tokens/punctuators.h"

#include <string_view>
#include <variant>

enum class TokenKind : std::uint32_t
{
    identifier = 0,
    keyword = 1,
    literal = 2,
    punctuator = 3,
    fileEnd = 4,
};

enum class LiteralKind : std::uint32_t
{
    character = 0,
    string = 1,
    integer = 2,
    real = 3,
};

/// What a token is beside its text. The payload of a kind is what its detail class holds.
template <TokenKind tokenKind>
struct BaseTokenDetail
{
    static constexpr TokenKind kind = tokenKind;
};

using BasicIdentifierTokenDetail = BaseTokenDetail<TokenKind::identifier>;
using FileEndTokenDetail = BaseTokenDetail<TokenKind::fileEnd>;

struct BasicKeywordTokenDetail : BaseTokenDetail<TokenKind::keyword>
{
    KeywordId id;
    explicit constexpr BasicKeywordTokenDetail(KeywordId keywordId) : id(keywordId) {}
};

struct BasicLiteralTokenDetail : BaseTokenDetail<TokenKind::literal>
{
    LiteralKind literalKind;
    explicit constexpr BasicLiteralTokenDetail(LiteralKind kindOfLiteral) : literalKind(kindOfLiteral) {}
};

struct BasicPunctuatorTokenDetail : BaseTokenDetail<TokenKind::punctuator>
{
    PunctuatorId id;
    explicit constexpr BasicPunctuatorTokenDetail(PunctuatorId punctuatorId) : id(punctuatorId) {}
};

/// The characters of one token where they stand in the source, which must outlive it. The quotes of a
/// string or char literal are part of its text.
class Token
{
public:
    // The alternatives stand in the order of TokenKind.
    using Detail = std::variant<BasicIdentifierTokenDetail, BasicKeywordTokenDetail, BasicLiteralTokenDetail,
                                BasicPunctuatorTokenDetail, FileEndTokenDetail>;

    Token(std::string_view text, std::uint64_t position, Detail detail)
        : m_text(text), m_position(position), m_detail(detail)
    {}

    std::string_view text() const { return m_text; }
    std::uint64_t position() const { return m_position; }
    SourceSpan span() const { return {m_position, m_text.size()}; }

    TokenKind kind() const { return static_cast<TokenKind>(m_detail.index()); }

    /// The payload of a kind. Asking for that of another kind is a program error
    /// (std::bad_variant_access).
    KeywordId keyword() const { return std::get<BasicKeywordTokenDetail>(m_detail).id; }
    LiteralKind literal() const { return std::get<BasicLiteralTokenDetail>(m_detail).literalKind; }
    PunctuatorId punctuator() const { return std::get<BasicPunctuatorTokenDetail>(m_detail).id; }

    bool is(KeywordId id) const { return kind() == TokenKind::keyword && keyword() == id; }
    bool is(LiteralKind id) const { return kind() == TokenKind::literal && literal() == id; }
    bool is(PunctuatorId id) const { return kind() == TokenKind::punctuator && punctuator() == id; }

    void setDetail(Detail detail) { m_detail = detail; }

private:
    std::string_view m_text;
    std::uint64_t m_position;
    Detail m_detail;
};

#endif
