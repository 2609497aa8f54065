#include "actionlanguage/types/typespecifier.h"

#include "actionlanguage/tokens/compilationexception.h"

#include <algorithm>
#include <array>

namespace {

/// The words that make a type.
DataType declaredType(const Token& token)
{
    switch (token.kind()) {
    case TokenKind::keyword:
        switch (token.keyword()) {
        case KeywordId::bool_:
            return DataType::boolean;
        case KeywordId::char_:
            return DataType::character;
        case KeywordId::double_:
            return DataType::real;
        case KeywordId::int_:
            return DataType::integer;
        default:
            return DataType::unknown;
        }
    case TokenKind::identifier:
        if (token.text() == "int64_t")
            return DataType::integer64;
        if (token.text() == "string")
            return DataType::string;
        if (token.text() == "uint64_t")
            return DataType::unsigned64;
        return DataType::unknown;
    default:
        return DataType::unknown;
    }
}

/// The words of C that could stand in a declaration and that the language refuses.
constexpr auto refusedWords = std::to_array<KeywordId>({
    KeywordId::auto_,
    KeywordId::enum_,
    KeywordId::extern_,
    KeywordId::float_,
    KeywordId::inline_,
    KeywordId::long_,
    KeywordId::register_,
    KeywordId::short_,
    KeywordId::signed_,
    KeywordId::static_,
    KeywordId::struct_,
    KeywordId::typedef_,
    KeywordId::union_,
    KeywordId::unsigned_,
    KeywordId::void_,
    KeywordId::volatile_,
});

bool isRefusedWord(const Token& token)
{
    return token.kind() == TokenKind::keyword && std::ranges::count(refusedWords, token.keyword()) != 0;
}

} // namespace

bool isTypeWord(const Token& token)
{
    const bool isWord = token.kind() == TokenKind::identifier || token.kind() == TokenKind::keyword;
    return isWord && typeFromName(token.text()).has_value();
}

bool isDeclarationWord(const Token& token)
{
    return token.is(KeywordId::const_) || declaredType(token) != DataType::unknown || isRefusedWord(token);
}

TypeSpecifier readTypeSpecifier(TokenStream& tokens)
{
    TypeSpecifier specifier;
    while (isDeclarationWord(tokens.next())) {
        const Token& word = tokens.advance();
        if (word.is(KeywordId::const_)) {
            specifier.isConst = true;
            continue;
        }
        if (isRefusedWord(word))
            throw CompilationException(LanguageError::unsupportedSpecifier, word.span());

        DataType type = declaredType(word);
        const bool charThenString = specifier.type == DataType::character && type == DataType::string;
        if (specifier.type != DataType::unknown && !charThenString)
            throw CompilationException(LanguageError::unexpectedSpecifier, word.span());
        if (type == DataType::character && tokens.take(PunctuatorId::star))
            type = DataType::string;
        specifier.type = type;
    }
    if (specifier.type == DataType::unknown)
        throw CompilationException(LanguageError::unsupportedSpecifier, tokens.current().span());
    return specifier;
}
