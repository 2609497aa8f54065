#include "HalvCore/string2.h"

#include "HalvCore/numbertext.h"
#include "HalvCore/widetext.h"

namespace Halvorin::System {

Expected<String2, ErrorCode2> utf8ToUtf8(const char* text, std::size_t length)
{
    const std::string_view bytes(text, length);
    std::size_t position = 0;
    while (position < bytes.size()) {
        if (!nextCharacter(bytes, position))
            return ErrorCode2(SystemError::invalidText, "byte " + numberText(position));
    }
    return String2(std::string(bytes));
}

Expected<String2, ErrorCode2> toUtf8(const ByteArray2& bytes)
{
    return utf8ToUtf8(bytes.data(), bytes.size());
}

} // namespace Halvorin::System
