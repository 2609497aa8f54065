#ifndef JSONTEXT_H
#define JSONTEXT_H

#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <ostream>
#include <sstream>
#include <stdexcept>
#include <string>

/// A value of any kind from its text. The engine's reader takes only arrays and objects at the top, so the
/// text is read as the one element of an array.
inline JsonValue jsonOf(const std::string& text)
{
    std::istringstream input("[" + text + "]");
    const JsonDocument document = readDocument(input);
    if (asArray(document).size() != 1)
        throw std::runtime_error("not one JSON value: " + text);
    return asArray(document).front();
}

/// What GoogleTest shows of a value.
inline void PrintTo(const JsonValue& value, std::ostream* output)
{
    *output << toString(value);
}

#endif
