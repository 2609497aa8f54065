#ifndef QTPLUGINLIBRARY_H
#define QTPLUGINLIBRARY_H

#include "Python/pluginlibrary.h"

#include <QLibrary>

/// The real one. Its symbols are visible to what is loaded later: Python's own modules look for them.
class QtPluginLibrary : public PluginLibrary
{
public:
    /// The name may be without what the platform puts around it: ".../EmbeddedPython".
    explicit QtPluginLibrary(const Halvorin::System::FilePath& file);

    bool load() override;
    Halvorin::System::FilePath file() const override;
    std::string reason() const override;
    void (*resolve(const char* symbol))() override;

private:
    QLibrary m_library;
};

#endif
