#ifndef HALVCORE_UNIQUEPOINTER_H
#define HALVCORE_UNIQUEPOINTER_H

#include <memory>

namespace Halvorin::System {

/// The one owner of an object; it moves, also to a pointer to a base.
template <class T>
using UniquePointer = std::unique_ptr<T>;

} // namespace Halvorin::System

#endif
