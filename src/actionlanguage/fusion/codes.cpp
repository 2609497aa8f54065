#include "actionlanguage/fusion/codes.h"

template <class T>
StorageShare<T>::~StorageShare() = default;

template class StorageShare<bool>;
template class StorageShare<const bool>;
template class StorageShare<double>;
template class StorageShare<const double>;
template class StorageShare<std::int32_t>;
template class StorageShare<const std::int32_t>;
template class StorageShare<std::int64_t>;
template class StorageShare<const std::int64_t>;
template class StorageShare<std::uint64_t>;
template class StorageShare<const std::uint64_t>;
