#include "actionlanguage/expressions/escapes.h"

#include "actionlanguage/tokens/compilationexception.h"

#include <array>

namespace {

struct Escape
{
    char source;
    char byte;
};

constexpr auto escapes = std::to_array<Escape>({
    {'"', 34},
    {'\'', 39},
    {'?', 63},
    {'\\', 92},
    {'a', 7},
    {'b', 8},
    {'f', 12},
    {'n', 10},
    {'r', 13},
    {'t', 9},
    {'v', 11},
});

const Escape* findEscape(char source)
{
    for (const Escape& escape : escapes)
        if (escape.source == source)
            return &escape;
    return nullptr;
}

} // namespace

std::string decodedLiteral(const Token& literal, AbstractCompiler& compiler)
{
    const std::string_view text = literal.text();
    const std::string_view body = text.size() < 2 ? std::string_view() : text.substr(1, text.size() - 2);
    const std::uint64_t start = literal.position() + 1;

    std::string decoded;
    decoded.reserve(body.size());
    for (std::size_t index = 0; index < body.size(); ++index) {
        if (body[index] != '\\') {
            decoded += body[index];
            continue;
        }
        if (++index == body.size())
            throw RequiresPositionException(LanguageError::invalidStringLiteral);
        if (const Escape* escape = findEscape(body[index])) {
            decoded += escape->byte;
            continue;
        }
        // The language reports such an escape by what is left of the body, counted from its start.
        compiler.addWarning(LanguageWarning::unrecognisedEscape, start + (body.size() - index), 1);
        decoded += body[index];
    }
    return decoded;
}
