#ifndef ALLOCATIONCOUNTER_H
#define ALLOCATIONCOUNTER_H

#include <cstddef>

/// How often this program has called operator new so far.
std::size_t allocationCount();

#endif
