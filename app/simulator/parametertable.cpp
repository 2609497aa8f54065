#include "simulator/parametertable.h"

#include "statechart/text/engineeringnumber.h"

#include <charconv>
#include <cmath>
#include <stdexcept>
#include <string_view>

namespace {

std::string_view wordOf(ParameterType type)
{
    for (const auto& [word, value] : parameterTypeWords)
        if (value == type)
            return word;
    return "unknown type";
}

/// The integer that a text stands for, as digits or as a number with a scale.
template <class Integer>
Integer integerOf(const std::string& text)
{
    Integer integer{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), integer);
    if (error == std::errc() && end == text.data() + text.size())
        return integer;
    const double number = parseEngineeringNumber(text);
    const double nearest = std::round(number);
    // A scale such as "0.7k" need not come out to the last bit.
    const bool isInteger = std::abs(number - nearest) <= 1e-12 * std::abs(number);
    const double limit = std::ldexp(1.0, std::numeric_limits<Integer>::digits);
    const double lowest = std::is_signed_v<Integer> ? -limit : 0;
    if (!isInteger || nearest < lowest || nearest >= limit)
        throw std::range_error("no such integer");
    return static_cast<Integer>(nearest);
}

} // namespace

ParameterTable::ParameterTable(const DigitalDeviceStateChart& chart, const ParameterOverrides& overrides)
{
    for (const auto& [name, definition] : chart.parameters) {
        Parameter& parameter = m_parameters[name];
        parameter.definition = definition;
        try {
            parameter.value = valueOf(name, definition);
        } catch (const std::runtime_error& error) {
            parameter.fault = error.what(); // it does no harm unless somebody reads the parameter
        }
    }
    for (const auto& [name, text] : overrides) {
        const auto found = m_parameters.find(name);
        if (found == m_parameters.end())
            throw std::runtime_error("the device has no parameter '" + name + "'");
        found->second.definition.value = text;
        found->second.value = valueOf(name, found->second.definition);
        found->second.fault.clear();
        if (name == "OUTPUT_DELAY" && found->second.value == Value(0.0))
            throw std::runtime_error("OUTPUT_DELAY parameter cannot be '0'"); // as the compiler has it
    }
}

ParameterTable::Value ParameterTable::valueOf(const std::string& name, const DeviceParameter& definition)
{
    try {
        switch (definition.type) {
        case ParameterType::int64:
            return integerOf<std::int64_t>(definition.value);
        case ParameterType::uint64:
            return integerOf<std::uint64_t>(definition.value);
        case ParameterType::real:
            return parseEngineeringNumber(definition.value);
        }
    } catch (const std::runtime_error&) {
    }
    throw std::runtime_error("parameter '" + name + "' is '" + definition.value + "', which is no " +
                             std::string(wordOf(definition.type)));
}

template <class T>
T ParameterTable::get(const std::string& name, ParameterType type) const
{
    const auto found = m_parameters.find(name);
    if (found == m_parameters.end())
        throw std::runtime_error("the device has no parameter '" + name + "'");
    const Parameter& parameter = found->second;
    if (parameter.definition.type != type)
        throw std::runtime_error("parameter '" + name + "' is read as '" + std::string(wordOf(type)) +
                                 "', and holds '" + std::string(wordOf(parameter.definition.type)) + "'");
    if (!parameter.fault.empty())
        throw std::runtime_error(parameter.fault);
    return std::get<T>(parameter.value);
}

std::int64_t ParameterTable::int64(const std::string& name) const
{
    return get<std::int64_t>(name, ParameterType::int64);
}

std::uint64_t ParameterTable::uint64(const std::string& name) const
{
    return get<std::uint64_t>(name, ParameterType::uint64);
}

double ParameterTable::real(const std::string& name) const
{
    return get<double>(name, ParameterType::real);
}
