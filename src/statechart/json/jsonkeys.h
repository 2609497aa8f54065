#ifndef JSONKEYS_H
#define JSONKEYS_H

#include "halvwidgetsexport.h"
#include "statechart/json/jsonlocator.h"
#include "statechart/json/jsonvalue.h"

#include <functional>

/// Calls `take`, until it says false, with the path of each member whose key does not come back when the
/// document is written and read: the writer puts keys down as they are, so that a quote ends one and a
/// backslash is taken for an escape.
HALVWIDGETS_EXPORT void forEachUnwritableKey(const JsonObject& document,
                                             const std::function<bool(const JsonPath& path)>& take);

#endif
