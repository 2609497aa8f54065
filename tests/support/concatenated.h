#ifndef CONCATENATED_H
#define CONCATENATED_H

#include <initializer_list>
#include <string>
#include <string_view>

/// The parts one behind the other. GCC 12 warns wrongly of some longer sums of texts.
inline std::string concatenated(std::initializer_list<std::string_view> parts)
{
    std::string text;
    for (const std::string_view part : parts)
        text += part;
    return text;
}

#endif
