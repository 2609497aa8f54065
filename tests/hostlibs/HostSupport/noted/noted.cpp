#include "HostSupport/versionnote.h"

HOSTSUPPORT_VERSION_NOTE("PythonVersion", "3.12");
HOSTSUPPORT_VERSION_NOTE("Other", "a longer text, of 31 characters");
HOSTSUPPORT_VERSION_NOTE("Empty", "");
