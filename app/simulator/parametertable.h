#ifndef PARAMETERTABLE_H
#define PARAMETERTABLE_H

#include "statechart/digitaldevicestatechart.h"

#include <string>
#include <unordered_map>
#include <utility>
#include <variant>
#include <vector>

/// Values to give to parameters in place of the device's own: name and text.
using ParameterOverrides = std::vector<std::pair<std::string, std::string>>;

/// The parameters of a running device as numbers. The text of one is a number with an engineering suffix; for
/// an integer type it must come to an integer.
class ParameterTable
{
public:
    /// Of overrides of one parameter the last counts.
    /// @throws std::runtime_error for an override of what the device does not have, or with a text that is
    /// no number of the parameter's type
    ParameterTable(const DigitalDeviceStateChart& chart, const ParameterOverrides& overrides);

    /// @throws std::runtime_error for a parameter that is not there, of another type, or whose own text is
    /// no number of its type
    std::int64_t int64(const std::string& name) const;
    std::uint64_t uint64(const std::string& name) const;
    double real(const std::string& name) const;

private:
    using Value = std::variant<std::int64_t, std::uint64_t, double>;

    struct Parameter
    {
        DeviceParameter definition;
        Value value;
        std::string fault; // empty when there is a value
    };

    static Value valueOf(const std::string& name, const DeviceParameter& definition);

    template <class T>
    T get(const std::string& name, ParameterType type) const;

    std::unordered_map<std::string, Parameter> m_parameters;
};

#endif
