#ifndef WINDOWSREGISTRY_H
#define WINDOWSREGISTRY_H

#include "Python/registryreader.h"

/// The registry of the machine; on Windows only.
class WindowsRegistry : public RegistryReader
{
public:
    std::unique_ptr<RegistryKey> open(RegistryRoot root, const std::wstring& path) override;
};

#endif
