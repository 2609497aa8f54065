#include "actionlanguage/types/datatype.h"

#include <algorithm>
#include <array>

namespace {

/// In the order of DataType.
constexpr auto typeNames = std::to_array<std::string_view>(
    {"unknown", "bool", "char", "double", "int", "int64_t", "string", "uint64_t", "void"});

} // namespace

std::string_view typeName(DataType type)
{
    const auto index = static_cast<std::size_t>(type);
    return typeNames[index < typeNames.size() ? index : 0];
}

std::optional<DataType> typeFromName(std::string_view name)
{
    const auto found = std::find(typeNames.begin() + 1, typeNames.end(), name);
    if (found == typeNames.end())
        return std::nullopt;
    return static_cast<DataType>(found - typeNames.begin());
}
