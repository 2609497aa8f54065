#include "Python/pythonexecutablemanager.h"
#include "Python/pythonlog.h"
#include "languageclient/pythonpathsource.h"

namespace {

/// The interpreter of a version, for the language client, which does not know of installations.
QString interpreterPath(const QString& version)
{
    try {
        return QString::fromStdWString(PythonExecutableManager().pythonPath(version.toStdString()));
    } catch (const std::exception& error) {
        PythonLog::error(error.what());
        return {};
    }
}

[[maybe_unused]] const bool installed = [] {
    Halvorin::LSP::setPythonPathSource(interpreterPath);
    return true;
}();

} // namespace
