#ifndef PUNCTUATORS_H
#define PUNCTUATORS_H

#include <array>
#include <cstdint>
#include <string_view>

/// The punctuators of the language, in the order of `punctuatorTable`.
///
/// `shiftRight` is reserved: the tokeniser never gives it. A token whose text is ">>" carries
/// `greaterEqual`, so code that tests ids takes it for ">="; operator rules compare texts.
enum class PunctuatorId : std::uint32_t
{
    and_,
    andAnd,
    star,
    shiftLeft,
    shiftRight,
    closeBrace,
    openBrace,
    closeBracket,
    openBracket,
    caret,
    colon,
    comma,
    andAssign,
    slashAssign,
    minusAssign,
    percentAssign,
    starAssign,
    orAssign,
    plusAssign,
    shiftLeftAssign,
    shiftRightAssign,
    caretAssign,
    minusMinus,
    equal,
    assign,
    slash,
    hashHash,
    exclamation,
    dot,
    greater,
    greaterEqual,
    plusPlus,
    notEqual,
    less,
    lessEqual,
    minus,
    hash,
    orOr,
    closeParenthesis,
    openParenthesis,
    percent,
    arrow,
    plus,
    question,
    colonColon,
    semicolon,
    tilde,
    or_,
};

/// The spelling of each punctuator, in the order of PunctuatorId.
inline constexpr auto punctuatorTable = std::to_array<std::string_view>({
    "&",  "&&", "*",  "<<",  ">>",  "}",  "{",  "]",  "[", "^",  ":",  ",", "&=", "/=", "-=", "%=",
    "*=", "|=", "+=", "<<=", ">>=", "^=", "--", "==", "=", "/",  "##", "!", ".",  ">",  ">=", "++",
    "!=", "<",  "<=", "-",   "#",   "||", ")",  "(",  "%", "->", "+",  "?", "::", ";",  "~",  "|",
});
static_assert(punctuatorTable.size() == static_cast<std::size_t>(PunctuatorId::or_) + 1);

#endif
