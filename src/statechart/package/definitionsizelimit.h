#ifndef DEFINITIONSIZELIMIT_H
#define DEFINITIONSIZELIMIT_H

#include <cstddef>

/// The most bytes that are read for a definition. It stands far above any; it keeps a mistaken path (a
/// device, a pipe that never ends) from filling the memory.
inline constexpr std::size_t definitionSizeLimit = std::size_t{128} << 20;

#endif
