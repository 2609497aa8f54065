#ifndef HALVCORE_STRINGVIEW_H
#define HALVCORE_STRINGVIEW_H

#include "HalvCore/string.h"

#include <string_view>

namespace Halvorin::System {

/// A borrowed text in UTF-8: whoever makes it sees to it that the text outlives it.
class StringView
{
public:
    StringView() = default;
    StringView(const char8_t* text) : m_text(text ? reinterpret_cast<const char*>(text) : "") {}
    StringView(const String& text) : m_text(text.toStdStringView()) {}

    const char* data() const { return m_text.data(); }
    std::size_t size() const { return m_text.size(); }
    std::string_view toStdStringView() const { return m_text; }

private:
    std::string_view m_text;
};

} // namespace Halvorin::System

#endif
