#ifndef HOSTSUPPORT_FOLDERS_H
#define HOSTSUPPORT_FOLDERS_H

#include "HalvCore/filepath.h"
#include "HostSupport/hostsupportexport.h"

/// The folder of the running program.
HOSTSUPPORT_EXPORT Halvorin::System::FilePath sp_GetExeDir();

#endif
