#ifndef KEYWORDS_H
#define KEYWORDS_H

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

/// The keywords of the language, in the order of `keywordTable`. "int64_t", "uint64_t" and "string" are none:
/// they stay identifiers and are known by their text where a type is expected.
enum class KeywordId : std::uint32_t
{
    auto_,
    bool_,
    break_,
    case_,
    char_,
    const_,
    continue_,
    default_,
    do_,
    double_,
    else_,
    enum_,
    extern_,
    false_,
    float_,
    for_,
    goto_,
    if_,
    inline_,
    int_,
    long_,
    nullptr_,
    register_,
    return_,
    short_,
    signed_,
    sizeof_,
    static_,
    struct_,
    switch_,
    true_,
    typedef_,
    union_,
    unsigned_,
    void_,
    volatile_,
    while_,
};

/// The spelling of each keyword, in the order of KeywordId. To add one, add it here and there.
inline constexpr auto keywordTable = std::to_array<std::string_view>({
    "auto", "bool",    "break",    "case",     "char",  "const",    "continue", "default", "do",     "double",
    "else", "enum",    "extern",   "false",    "float", "for",      "goto",     "if",      "inline", "int",
    "long", "nullptr", "register", "return",   "short", "signed",   "sizeof",   "static",  "struct", "switch",
    "true", "typedef", "union",    "unsigned", "void",  "volatile", "while",
});
static_assert(keywordTable.size() == static_cast<std::size_t>(KeywordId::while_) + 1);

/// The keyword that an identifier spells exactly, if any.
std::optional<KeywordId> keywordOf(std::string_view identifier);

#endif
