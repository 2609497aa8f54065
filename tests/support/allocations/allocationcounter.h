#ifndef ALLOCATIONCOUNTER_H
#define ALLOCATIONCOUNTER_H

#include <cstddef>

/// How often this program has called operator new so far.
std::size_t allocationCount();

/// How many bytes it has asked for, whether or not it gave them back.
std::size_t allocatedBytes();

#endif
