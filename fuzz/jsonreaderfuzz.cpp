#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <cstdlib>
#include <optional>
#include <sstream>
#include <string>
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
    const std::optional<JsonDocument> document =
        documentOf(std::string(reinterpret_cast<const char*>(data), size));
    if (!document)
        return 0;
    if (everyKeyComesBack(document->value()))
        checkItComesBack(document->value());
    else
        toString(document->value());
    return 0;
}
