#ifndef HALVCORE_STRING2_H
#define HALVCORE_STRING2_H

#include "HalvCore/bytearray2.h"
#include "HalvCore/errorcode2.h"
#include "HalvCore/expected.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Halvorin::System {

/// The text value of the Expected interfaces: always valid UTF-8, since only the checks below make one that
/// is not empty.
class HALVCORE_EXPORT String2
{
public:
    String2() = default;

    const char* data() const { return m_text.data(); }
    std::size_t length() const { return m_text.size(); }
    std::string_view toStdStringView() const { return m_text; }

    friend bool operator==(const String2&, const String2&) = default;

private:
    friend HALVCORE_EXPORT Expected<String2, ErrorCode2> utf8ToUtf8(const char* text, std::size_t length);
    explicit String2(std::string text) : m_text(std::move(text)) {}

    std::string m_text;
};

/// The same bytes as text, or SystemError::invalidText when they are not valid UTF-8.
HALVCORE_EXPORT Expected<String2, ErrorCode2> utf8ToUtf8(const char* text, std::size_t length);
HALVCORE_EXPORT Expected<String2, ErrorCode2> toUtf8(const ByteArray2& bytes);

} // namespace Halvorin::System

#endif
