#include "simulator/jsontext.h"

#include "statechart/json/jsonreader.h"

#include <sstream>

JsonValue readJsonText(std::string_view text)
{
    std::istringstream stream{std::string(text)};
    try {
        return readDocument(stream).value();
    } catch (const JsonReadException& failure) {
        throw JsonLineNumberReadException(failure, stream);
    }
}
