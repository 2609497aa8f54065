#ifndef PLUGINLIBRARY_H
#define PLUGINLIBRARY_H

#include "HalvCore/filepath.h"

#include <string>

/// A shared library that may be loaded. What is loaded stays loaded when this object goes.
class PluginLibrary
{
public:
    virtual ~PluginLibrary() = default;

    /// One try. May be called again after a failure.
    virtual bool load() = 0;

    /// The file, with what the platform puts around its name once it is loaded.
    virtual Halvorin::System::FilePath file() const = 0;

    /// Why the last try failed.
    virtual std::string reason() const = 0;

    /// The address of an exported function; null when there is none.
    virtual void (*resolve(const char* symbol))() = 0;
};

#endif
