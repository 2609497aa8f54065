#include "resources/libraryresources.h"

#include <QtGlobal>

// Qt declares the block's initialiser where the macro stands, and that must be no namespace.
static void registerBlock()
{
    Q_INIT_RESOURCE(halvwidgets); // registers it once, however often it is called
}

namespace Halvorin::LibraryResources {

QString pythonGrammar()
{
    registerBlock();
    return QStringLiteral(":/halvwidgets/grammars/python.tmLanguage.json");
}

} // namespace Halvorin::LibraryResources
