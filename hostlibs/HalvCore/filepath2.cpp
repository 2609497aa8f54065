#include "HalvCore/filepath2.h"

#include "HalvCore/nativepath.h"

namespace Halvorin::System {

FilePath2::FilePath2(const wchar_t* text, std::size_t length)
    : m_path(nativePath(std::wstring_view(text, length)))
{}

} // namespace Halvorin::System
