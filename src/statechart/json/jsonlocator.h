#ifndef JSONLOCATOR_H
#define JSONLOCATOR_H

#include "halvwidgetsexport.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
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

/// Where every value of a document stands, found in one pass and with no stack for depth. The text, which
/// must outlive this, is taken for one that the reader accepts; on any other the places are a guess within
/// it.
///
///     JsonLocator(R"({"a": [1, 22]})").locate({"a", 1u}).value   // offset 10, length 2
class HALVWIDGETS_EXPORT JsonLocator
{
public:
    explicit JsonLocator(std::string_view document);

    /// The place of the value that a path leads to, or of the deepest one on the way that there is. The first
    /// of duplicate keys counts, as it does for the reader.
    JsonLocation locate(const JsonPath& path) const;

private:
    struct Value
    {
        JsonRange range;
        std::optional<JsonRange> key;
    };

    struct Step
    {
        std::size_t from; // an index of m_values
        JsonPathSegment segment;

        friend bool operator==(const Step&, const Step&) = default;
    };

    struct StepHash
    {
        std::size_t operator()(const Step& step) const;
    };

    struct Container
    {
        std::size_t value; // an index of m_values
        bool isObject;
        std::size_t count = 0;
    };

    char here() const { return m_position < m_text.size() ? m_text[m_position] : '\0'; }
    void skipWhitespace();
    void findAll();
    void enterNext();
    void findMember();
    void add(std::optional<Step> step, const std::optional<JsonRange>& key);
    void endContainer();
    std::string takeString();

    std::string_view m_text;
    std::size_t m_position = 0;
    std::vector<Value> m_values; // the first is the whole document
    std::vector<Container> m_open;
    std::unordered_map<Step, std::size_t, StepHash> m_steps;
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
