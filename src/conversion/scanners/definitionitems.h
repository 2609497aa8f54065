#ifndef DEFINITIONITEMS_H
#define DEFINITIONITEMS_H

#include "conversion/core/expression.h"

#include <vector>

namespace Halvorin::Text {

/// Terms with their definitions in a definition list, as groups 0 and 1, where line feeds are the only ends
/// of lines.
std::vector<Hit> findDefinitionItems(const SourceText& list);

} // namespace Halvorin::Text

#endif
