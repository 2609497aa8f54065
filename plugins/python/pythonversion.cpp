#include "HostSupport/versionnote.h"
#include "pluginexport.h"

#include <Python.h>

#define TEXT_OF(value) #value
#define TEXT_OF_VALUE(macro) TEXT_OF(macro)

HOSTSUPPORT_VERSION_NOTE("PythonVersion",
                         TEXT_OF_VALUE(PY_MAJOR_VERSION) "." TEXT_OF_VALUE(PY_MINOR_VERSION));

/// The Python version that the plug-in was built against: 311 for 3.11.
PLUGIN_EXPORT int dyn_GetPythonVersion()
{
    return PY_MAJOR_VERSION * 100 + PY_MINOR_VERSION;
}
