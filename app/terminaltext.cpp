#include "terminaltext.h"

#include <algorithm>

namespace {

bool isControlCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) < 0x20 && byte != '\t') || byte == 0x7f;
}

} // namespace

std::string withoutControlCharacters(std::string text)
{
    std::ranges::replace_if(text, isControlCharacter, '?');
    return text;
}
