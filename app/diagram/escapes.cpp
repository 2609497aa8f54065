#include "diagram/escapes.h"

#include <array>

namespace {

bool isControl(char character)
{
    return static_cast<unsigned char>(character) < 0x20;
}

void appendCode(std::string& text, std::string_view start, char character)
{
    text.append(start).append(std::to_string(static_cast<unsigned char>(character))).append(";");
}

struct Entity
{
    char character;
    std::string_view text;
};

constexpr std::array<Entity, 4> entities{{{'&', "&amp;"}, {'<', "&lt;"}, {'>', "&gt;"}, {'"', "&quot;"}}};

std::string_view entityOf(char character)
{
    for (const Entity& entity : entities)
        if (entity.character == character)
            return entity.text;
    return {};
}

} // namespace

std::string xmlEscaped(std::string_view text, std::string_view lineEnd)
{
    std::string result;
    for (const char character : text) {
        const std::string_view entity = entityOf(character);
        if (!entity.empty())
            result += entity;
        else if (character == '\n')
            result += lineEnd;
        else if (character == '\t' || character == '\r')
            appendCode(result, "&#", character);
        else
            result += isControl(character) ? '?' : character; // XML takes no others
    }
    return result;
}

std::string labelEscaped(std::string_view text, const LabelEscapes& escapes)
{
    std::string result;
    for (const char character : text) {
        if (escapes.special.find(character) != std::string_view::npos)
            appendCode(result, escapes.codeStart, character);
        else if (character == '\n')
            result += escapes.lineEnd;
        else
            result += isControl(character) ? ' ' : character;
    }
    return result.empty() ? std::string(escapes.nothing) : result;
}
