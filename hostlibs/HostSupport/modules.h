#ifndef HOSTSUPPORT_MODULES_H
#define HOSTSUPPORT_MODULES_H

#include "HostSupport/hostsupportexport.h"

#include <string>
#include <vector>

/// The names of the shared libraries that are loaded now, without their folders.
HOSTSUPPORT_EXPORT std::vector<std::string> sp_GetLoadedModules();

#endif
