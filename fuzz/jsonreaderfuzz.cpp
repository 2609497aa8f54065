#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <cstdlib>
#include <sstream>

/// What the reader takes, the writer must put so that the reader takes it again and finds the same. Only keys
/// may spoil that: they are written as raw bytes.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::istringstream input(std::string(reinterpret_cast<const char*>(data), size));
    try
    {
        const JsonDocument document = readDocument(input);
        const std::string text = toString(document.value());
        std::istringstream again(text);
        try
        {
            if (toString(readDocument(again).value()) != text && text.find('\\') == std::string::npos)
                std::abort();
        }
        catch (const JsonException&)
        {
            // a quote or a backslash in a key
            if (std::string_view(reinterpret_cast<const char*>(data), size).find('\\') == std::string_view::npos)
                std::abort();
        }
    }
    catch (const JsonReadException& failure)
    {
        input.clear();
        const JsonLineNumberReadException worded(failure, input);
        if (worded.line() == 0 || worded.character() == 0 || failure.position() > size)
            std::abort();
    }
    catch (const JsonException&)
    {
    }
    return 0;
}
