#include "highlight/colourscheme.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<ColourRule, 33> rules{{
    {"comment", 243},
    {"constant.character", 130},
    {"constant.language", 163},
    {"constant.numeric", 29},
    {"constant.other", 29},
    {"constant.other.format-spec", 130},
    {"constant.other.placeholder", 130},
    {"entity.name", 98},
    {"entity.name.function", 98, true},
    {"entity.name.function.decorator", 162},
    {"entity.name.tag", 27},
    {"entity.name.type", 131, true},
    {"entity.other", 131},
    {"invalid", 161, true},
    {"keyword", 27, true},
    {"keyword.operator", 27},
    {"keyword.operator.identity", 27, true},
    {"keyword.operator.logical", 27, true},
    {"keyword.operator.membership", 27, true},
    {"keyword.other.codetag", 161, true},
    {"markup.heading", 27, true},
    {"meta.embedded", ColourRule::plain},
    {"punctuation.definition.decorator", 162},
    {"punctuation.section.interpolation", 130},
    {"storage", 27, true},
    {"storage.type.string", 28},
    {"string", 28},
    {"support", 62},
    {"support.function.builtin.decorator", 162},
    {"support.type", 131},
    {"variable.function", 98},
    {"variable.language", 163},
    {"variable.parameter", 130},
}};

/// The levels of red, green and blue of the colours from 16 to 231.
constexpr std::array<int, 6> levels{0, 95, 135, 175, 215, 255};

bool isPrefix(std::string_view prefix, std::string_view scope)
{
    return scope.starts_with(prefix) && (scope.size() == prefix.size() || scope[prefix.size()] == '.');
}

std::string twoDigits(int byte)
{
    constexpr std::string_view digits = "0123456789abcdef";
    return {digits[static_cast<std::size_t>(byte / 16)], digits[static_cast<std::size_t>(byte % 16)]};
}

} // namespace

std::span<const ColourRule> colourRules()
{
    return rules;
}

std::string hexadecimalColour(int colour)
{
    if (colour >= 232) { // greys
        const std::string grey = twoDigits(8 + 10 * (colour - 232));
        return grey + grey + grey;
    }
    std::string text;
    for (const int step : {36, 6, 1})
        text += twoDigits(levels[static_cast<std::size_t>((colour - 16) / step % 6)]);
    return text;
}

const ColourRule* ColourScheme::rule(const QStringList& scopes)
{
    for (auto scope = scopes.crbegin(); scope != scopes.crend(); ++scope) {
        if (const ColourRule* found = ruleOfScope(*scope))
            return found->colour == ColourRule::plain ? nullptr : found;
    }
    return nullptr;
}

const ColourRule* ColourScheme::ruleOfScope(const QString& scope)
{
    const auto known = m_found.constFind(scope);
    if (known != m_found.cend())
        return *known;
    const std::string text = scope.toStdString();
    const ColourRule* longest = nullptr;
    for (const ColourRule& candidate : rules) {
        if (isPrefix(candidate.scope, text) &&
            (longest == nullptr || candidate.scope.size() > longest->scope.size()))
            longest = &candidate;
    }
    m_found.insert(scope, longest);
    return longest;
}
