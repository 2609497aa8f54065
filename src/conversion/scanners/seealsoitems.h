#ifndef SEEALSOITEMS_H
#define SEEALSOITEMS_H

#include "conversion/core/expression.h"

#include <vector>

namespace Halvorin::Text {

/// The entries of a "See Also" section: a name and, where a colon stands behind it, a description with one
/// deeper line, as groups 0 and 1. A line without a colon, or what stands of it before one, is a name alone.
/// They are what Expressions::seeAlsoItem finds, but for what is empty.
std::vector<Hit> findSeeAlsoItems(const SourceText& section);

} // namespace Halvorin::Text

#endif
