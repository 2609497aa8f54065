#ifndef PYTHONPATHSOURCE_H
#define PYTHONPATHSOURCE_H

#include "halvwidgetsexport.h"

#include <QString>
#include <functional>

namespace Halvorin::LSP {

/// Gives the path of the interpreter of a version such as "3.12", empty when there is none.
using PythonPathSource = std::function<QString(const QString& version)>;

/// Who knows the interpreters stands above the client (the Python editor) and installs itself here. Without a
/// source no version has a path. GUI thread only.
HALVWIDGETS_EXPORT void setPythonPathSource(PythonPathSource source);

/// What the source says.
QString pythonPathOf(const QString& version);

} // namespace Halvorin::LSP

#endif
