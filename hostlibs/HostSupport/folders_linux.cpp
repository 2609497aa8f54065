#include "HostSupport/folders.h"

Halvorin::System::FilePath sp_GetExeDir()
{
    return std::filesystem::read_symlink("/proc/self/exe").parent_path();
}
