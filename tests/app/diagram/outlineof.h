#ifndef OUTLINEOF_H
#define OUTLINEOF_H

#include "diagram/diagramtext.h"
#include "simulator/jsontext.h"

#include <string>

/// The outline of a chart.
/// @param states what stands between the braces of "states"
inline ChartOutline outlineOf(const std::string& states, const std::string& start = "a")
{
    std::string definition = R"({"outputs": {}, "outputDelay": "1n", "start": ")";
    definition.append(start).append(R"(", "states": {)").append(states).append("}}");
    return ChartOutline(readJsonText(definition).asObject());
}

/// What each language makes of an outline.
inline std::string textOf(DiagramText (*write)(const DiagramContent&), const std::string& states)
{
    const ChartOutline outline = outlineOf(states);
    return write({outline}).text;
}

#endif
