#ifndef HALVCORE_FILEPATH2_H
#define HALVCORE_FILEPATH2_H

#include "HalvCore/halvcoreexport.h"

#include <cstddef>
#include <filesystem>

namespace Halvorin::System {

/// The path value of the Expected interfaces. Like FilePath it keeps a name of any bytes as it is.
class HALVCORE_EXPORT FilePath2
{
public:
    FilePath2(const wchar_t* text, std::size_t length);

    const std::filesystem::path& toStdPath() const { return m_path; }

private:
    std::filesystem::path m_path;
};

} // namespace Halvorin::System

#endif
