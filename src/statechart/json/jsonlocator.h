#ifndef JSONLOCATOR_H
#define JSONLOCATOR_H

#include "halvwidgetsexport.h"

#include <cstddef>
#include <map>
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

/// Finds where values of a document stand, with no stack for depth. It goes over the text once, and then only
/// over the arrays and objects on the paths that it is asked for; what it keeps is small beside the text. The
/// text, which must outlive this, is taken for one that the reader accepts; on any other the places are a
/// guess within it.
///
///     JsonLocator(R"({"a": [1, 22]})").locate({"a", 1u}).value   // offset 10, length 2
class HALVWIDGETS_EXPORT JsonLocator
{
public:
    explicit JsonLocator(std::string_view document);

    /// The place of the value that a path leads to, or of the deepest one on the way that there is. The first
    /// of duplicate keys counts, as it does for the reader.
    JsonLocation locate(const JsonPath& path);

private:
    struct Member
    {
        std::size_t key; // where it starts, with its quote
        std::size_t value;
    };

    /// An array or object on the way to a value that somebody asked for.
    struct Container
    {
        std::vector<Member> members;       // by key, the earlier of equal ones first
        std::vector<std::size_t> elements; // where every sixteenth starts
    };

    void findLongContainers();
    std::size_t behindValue(std::size_t position) const;
    std::size_t behindContainer(std::size_t position) const;
    const JsonRange* longContainerAt(std::size_t position) const;
    std::size_t itemFrom(std::size_t position) const;
    const Container& container(std::size_t position);
    Container readContainer(std::size_t position) const;
    std::optional<Member> readMember(std::size_t position) const;
    std::optional<Member> memberOf(std::size_t object, std::string_view key);
    std::optional<std::size_t> elementOf(std::size_t array, std::size_t index);

    std::string_view m_text;
    std::vector<JsonRange> m_longContainers; // those that it takes long to go over, in the order of the text
    std::map<std::size_t, Container> m_containers;
};

/// Where the bytes of a string value stand in the text of its document: an escape is two bytes there and one
/// in the string.
class JsonStringOffsets
{
public:
    /// `string` is the place of the value, with its quotes. What is no string has one place only, its start.
    JsonStringOffsets(std::string_view document, const JsonRange& string);

    /// The offset in the document of a byte of the decoded string; past its end that of the closing quote.
    std::size_t offsetOf(std::size_t decodedOffset) const;

private:
    std::size_t m_start;
    std::size_t m_end;
    std::vector<std::size_t> m_escapes; // their offsets in the decoded string
};

#endif
