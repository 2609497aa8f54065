#ifndef OUTOFMEMORY_H
#define OUTOFMEMORY_H

#include "halvwidgetsexport.h"

#include <exception>

/// Whether memory has run out, which is no fault of the text that was being compiled: then the whole compile
/// ends. The tokeniser's own allocation failure is one of the text.
HALVWIDGETS_EXPORT bool isOutOfMemory(const std::exception& failure);

/// What to say of a failure that ends a command: its own words, or "out of memory". They are there as long as
/// the failure is.
HALVWIDGETS_EXPORT const char* failureText(const std::exception& failure);

#endif
