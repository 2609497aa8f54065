#ifndef JSONLOCATOR_H
#define JSONLOCATOR_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// One step into a value: the key of a member or the index of an element.
using JsonPathSegment = std::variant<std::string, std::size_t>;

/// The way from the top of a document to a value in it.
using JsonPath = std::vector<JsonPathSegment>;

/// Bytes of a text.
struct JsonRange
{
    std::size_t offset = 0;
    std::size_t length = 0;

    std::size_t end() const { return offset + length; }
    friend bool operator==(const JsonRange&, const JsonRange&) = default;
};

/// Where a value stands in the text of its document.
struct JsonLocation
{
    JsonRange value;
    std::optional<JsonRange> key; ///< with its quotes, when the value is a member
    std::size_t matched = 0;      ///< how many segments of the path there are
};

/// Finds the value that a path leads to, or the deepest one on the way that there is. The first of duplicate
/// keys counts, as it does for the reader. The text is taken for one that the reader accepts; on any other
/// the place is a guess within the text.
///
///     locateJsonValue(R"({"a": [1, 22]})", {"a", 1u}).value   // offset 10, length 2
JsonLocation locateJsonValue(std::string_view document, const JsonPath& path);

/// The offset in the document of a byte of a decoded string, whose value stands at `string`. An escape is
/// two bytes in the document and one in the string. Past the end of the string it is that of the closing
/// quote; for a value that is no string it is the value's own.
std::size_t offsetOfStringByte(std::string_view document, const JsonRange& string, std::size_t decodedOffset);

#endif
