#include "statechart/check/lints.h"
#include "statechart/text/format.h"

#include <array>

namespace {

/// The members of a section whose values are numbers, and which of them; "" is the section itself.
struct NumberPlace
{
    std::string_view section;
    std::string_view key;
};

constexpr auto places = std::to_array<NumberPlace>({
    {"outputDelay", ""},
    {"inputs", "width"},
    {"outputs", "width"},
    {"outputs", "initial"},
    {"parameters", "value"},
    {"variables", "value"},
});

/// Whether a number without a point has an exponent that would change it.
bool dropsExponent(std::string_view number)
{
    const std::size_t exponent = number.find_first_of("eE");
    if (exponent == std::string_view::npos || number.find('.') != std::string_view::npos)
        return false;
    constexpr std::string_view nonzero = "123456789";
    return number.substr(0, exponent).find_first_of(nonzero) != std::string_view::npos &&
           number.substr(exponent).find_first_of(nonzero) != std::string_view::npos;
}

class NumberLint
{
public:
    NumberLint(const JsonObject& definition, FindingReport& report)
        : m_definition(definition), m_report(report)
    {}

    void lint(const NumberPlace& place)
    {
        const JsonValue* const section = m_definition.find(place.section);
        if (section == nullptr)
            return;
        if (place.key.empty()) {
            lintValue(*section, {std::string(place.section)});
            return;
        }
        if (!section->isObject())
            return;
        for (const JsonMember& member : section->asObject()) {
            if (member.value.isObject())
                lintMember(member.value.asObject(), place.key, {std::string(place.section), member.key});
        }
    }

    void lintMember(const JsonObject& owner, std::string_view key, JsonPath path)
    {
        const JsonValue* const value = owner.find(key);
        if (value == nullptr)
            return;
        path.emplace_back(std::string(key));
        lintValue(*value, path);
    }

private:
    /// "1e-9" is the integer 1.
    void lintValue(const JsonValue& value, const JsonPath& path)
    {
        if (!value.isInt())
            return;
        const JsonRange range = m_report.locate(path).value;
        const std::string_view number = m_report.definition().substr(range.offset, range.length);
        if (!dropsExponent(number))
            return;
        m_report.addAt({FindingKind::splitExponent,
                        formatText("'{}' is read as {}: a number without a point is an integer and has no "
                                   "exponent",
                                   number, value.asInt())},
                       path);
    }

    const JsonObject& m_definition;
    FindingReport& m_report;
};

/// Whether there is a number with an exponent and without a point anywhere. Hardly a definition has one, and
/// to find the places of all its numbers takes longer than all else.
bool mayDropExponents(std::string_view definition)
{
    for (std::size_t i = definition.find_first_of("eE"); i != std::string_view::npos;
         i = definition.find_first_of("eE", i + 1)) {
        const std::size_t start = i == 0 ? i : definition.find_last_not_of("0123456789", i - 1);
        const bool hasDigits = start != std::string_view::npos && start + 1 < i;
        if (hasDigits && definition[start] != '.')
            return true;
    }
    return false;
}

} // namespace

void lintNumbers(const CheckedDefinition& checked, FindingReport& report)
{
    if (!mayDropExponents(report.definition()))
        return;
    NumberLint lint(checked.definition, report);
    for (const NumberPlace& place : places)
        lint.lint(place);
    for (const ChartTransition& transition : checked.chart.transitions())
        lint.lintMember(*transition.definition, "order", transition.place.path());
}
