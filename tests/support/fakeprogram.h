#ifndef FAKEPROGRAM_H
#define FAKEPROGRAM_H

#include "support/temporaryfolder.h"

/// Makes a program of a few lines for the system's shell, and gives its path.
inline std::filesystem::path fakeProgram(const TemporaryFolder& folder, const std::filesystem::path& name,
                                         const std::string& lines)
{
    const std::filesystem::path file = folder.write(name, "#!/bin/sh\n" + lines + "\n");
    std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    return file;
}

#endif
