#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <sstream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

namespace {

/// Keys are written as raw bytes, so that one with a quote or a backslash comes back as another text, or as
/// none.
bool comesBack(std::string_view key)
{
    return key.find_first_of("\"\\") == std::string_view::npos;
}

bool everyKeyComesBack(const JsonValue& document)
{
    std::vector<const JsonValue*> values{&document};
    while (!values.empty()) {
        const JsonValue& value = *values.back();
        values.pop_back();
        if (value.isArray()) {
            for (const JsonValue& element : value.asArray())
                values.push_back(&element);
        } else if (value.isObject()) {
            for (const auto& [key, member] : value.asObject()) {
                if (!comesBack(key))
                    return false;
                values.push_back(&member);
            }
        }
    }
    return true;
}

void check(bool holds)
{
    if (!holds)
        std::abort();
}

void checkItComesBack(const JsonValue& value)
{
    const std::string text = toString(value);
    std::istringstream input(text);
    const JsonValue readBack = readDocument(input).value();
    check(readBack == value);
    check(toString(readBack) == text);
}

/// Hands out a text a few bytes at a time, as a pipe may do.
class PieceBuffer : public std::streambuf
{
public:
    explicit PieceBuffer(std::string text) : m_text(std::move(text)) {}

protected:
    int_type underflow() override
    {
        char* const start = m_text.data() + m_given;
        m_given = std::min(m_given + 7, m_text.size());
        setg(start, start, m_text.data() + m_given);
        return gptr() == egptr() ? traits_type::eof() : traits_type::to_int_type(*gptr());
    }

private:
    std::string m_text;
    std::size_t m_given = 0;
};

/// The same comes out of it, or the same failure at the same place.
void checkItIsTheSameInPieces(const std::string& text, const std::optional<JsonDocument>& whole)
{
    PieceBuffer buffer(text);
    std::istream input(&buffer);
    try {
        const JsonDocument document = readDocument(input);
        check(whole && document.value() == whole->value());
    } catch (const JsonException& failure) {
        check(!whole);
        std::istringstream again(text);
        try {
            readDocument(again);
        } catch (const JsonException& expected) {
            check(std::string_view(failure.what()) == expected.what());
        }
    }
}

/// Nothing when the text is not a document. The failure must then have its place within the text.
std::optional<JsonDocument> documentOf(const std::string& text)
{
    std::istringstream input(text);
    try {
        return readDocument(input);
    } catch (const JsonReadException& failure) {
        check(failure.position() <= text.size());
        const JsonLineNumberReadException worded(failure, input);
        check(worded.line() > 0 && worded.character() > 0);
    } catch (const JsonException&) {
        // a document that is neither an array nor an object
    }
    return std::nullopt;
}

} // namespace

/// What the reader takes, the writer must put so that the reader takes it again and finds the same.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    const std::optional<JsonDocument> document = documentOf(text);
    checkItIsTheSameInPieces(text, document);
    if (!document)
        return 0;
    if (everyKeyComesBack(document->value()))
        checkItComesBack(document->value());
    else
        toString(document->value());
    return 0;
}
