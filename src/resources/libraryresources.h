#ifndef LIBRARYRESOURCES_H
#define LIBRARYRESOURCES_H

#include "halvwidgetsexport.h"

#include <QString>

/// Paths in the library's resource block. Asking for one sees to it that the block is there, also where the
/// library is linked as an archive.
namespace Halvorin::LibraryResources {

/// The library's own TextMate grammar, of scope "source.python".
HALVWIDGETS_EXPORT QString pythonGrammar();

} // namespace Halvorin::LibraryResources

#endif
