#include "statechart/definitionpath.h"

#include "statechart/text/format.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

/// Keys whose objects hold members under identifiers.
constexpr std::array<std::string_view, 7> sections{"states",  "substates",  "transitions", "inputs",
                                                   "outputs", "parameters", "variables"};

bool isSection(std::string_view key)
{
    return std::find(sections.begin(), sections.end(), key) != sections.end();
}

} // namespace

std::string definitionPathText(const JsonPath& path)
{
    std::string text;
    bool inSection = false;
    for (const JsonPathSegment& segment : path) {
        const auto* const key = std::get_if<std::string>(&segment);
        if (key != nullptr && inSection) {
            text += formatText("[\"{}\"]", *key);
            inSection = false;
            continue;
        }
        if (!text.empty())
            text += '.';
        text += key != nullptr ? *key : formatText("[{}]", std::get<std::size_t>(segment));
        inSection = key != nullptr && isSection(*key);
    }
    return text;
}
