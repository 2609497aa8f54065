#ifndef HOSTSUPPORT_FILEVERSION_H
#define HOSTSUPPORT_FILEVERSION_H

#include "HalvCore/filepath.h"
#include "HostSupport/hostsupportexport.h"

#include <optional>
#include <string>

/// What a file says of its own version.

struct FileVersion
{
    int major = 0;
    int minor = 0;

    friend bool operator==(const FileVersion&, const FileVersion&) = default;
};

/// The version of a Python interpreter; nothing for any other file. Where files have no version resource the
/// interpreter is run once with --version, for five seconds at most, and its answer (also that it has none)
/// holds until the file changes. May be used from any thread.
HOSTSUPPORT_EXPORT std::optional<FileVersion> sp_GetFileVersion(const Halvorin::System::FilePath& file);

/// A named text of a file's version resource; nothing when the file has none of that name, cannot be read, or
/// is damaged. In ELF files the resource is a note, see versionnote.h.
HOSTSUPPORT_EXPORT std::optional<std::string> sp_GetFileVersionString(const Halvorin::System::FilePath& file,
                                                                      const std::string& name);

#endif
