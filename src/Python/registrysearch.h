#ifndef REGISTRYSEARCH_H
#define REGISTRYSEARCH_H

#include "Python/pythoninstallation.h"
#include "Python/registryreader.h"

#include <vector>

/// The installations that "Software\Python" names, the user's before the machine's: a key for a company, and
/// below it a key for each tag. A key that cannot be opened, and one that leads to no interpreter, is passed
/// over. `versionOf` is asked where a tag does not say its version.
std::vector<PythonInstallation> searchRegistry(RegistryReader& registry, const VersionOfFile& versionOf);

#endif
