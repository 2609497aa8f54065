#include "Python/qtpluginlibrary.h"

#include <QFile>

using Halvorin::System::FilePath;

QtPluginLibrary::QtPluginLibrary(const FilePath& file)
    : m_library(QFile::decodeName(QByteArray::fromStdString(file.toString().toLegacyUtf8())))
{
    m_library.setLoadHints(QLibrary::ExportExternalSymbolsHint | QLibrary::PreventUnloadHint);
}

bool QtPluginLibrary::load()
{
    if (m_library.load())
        return true;
    m_library.unload(); // it would not try again otherwise
    return false;
}

FilePath QtPluginLibrary::file() const
{
    return QFile::encodeName(m_library.fileName()).toStdString();
}

std::string QtPluginLibrary::reason() const
{
    return m_library.errorString().toStdString();
}

void (*QtPluginLibrary::resolve(const char* symbol))()
{
    return m_library.resolve(symbol);
}
