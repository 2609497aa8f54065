#include "languageclient/pythonpathsource.h"

namespace Halvorin::LSP {

namespace {

PythonPathSource& installedSource()
{
    static PythonPathSource source;
    return source;
}

} // namespace

void setPythonPathSource(PythonPathSource source)
{
    installedSource() = std::move(source);
}

QString pythonPathOf(const QString& version)
{
    const PythonPathSource& source = installedSource();
    return source ? source(version) : QString();
}

} // namespace Halvorin::LSP
