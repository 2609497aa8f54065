#include "HostSupport/versionnote.h"

int interpreterVersion();

HOSTSUPPORT_VERSION_NOTE("PythonVersion", STAMP);

extern "C" __attribute__((visibility("default"))) int dyn_GetPythonVersion()
{
    return interpreterVersion();
}
