#ifndef DEFINITIONPATH_H
#define DEFINITIONPATH_H

#include "statechart/json/jsonlocator.h"

#include <string>

/// A place in a definition as messages name it: `states["a"].transitions["t"].actions.[0]`. What the author
/// named stands in brackets behind the section that holds it.
std::string definitionPathText(const JsonPath& path);

#endif
