#ifndef RECORDINGACTOR_H
#define RECORDINGACTOR_H

#include "statechart/digitaldeviceactor.h"
#include "statechart/text/format.h"

#include <map>
#include <stdexcept>
#include <vector>

/// A device that writes every call down, "name(arguments)", and answers with what the test put there.
class RecordingActor : public AbstractDigitalDeviceActor
{
public:
    using AbstractDigitalDeviceActor::AbstractDigitalDeviceActor;

    std::vector<std::string> calls;
    std::map<std::string, DeviceVariableValue> variables;
    std::map<std::string, double> parameters{{"OUTPUT_DELAY", 2.5}};
    bool answer = true;

    void print(const std::string& text) override { record("print", text); }

    void setVariable(const std::string& name, const DeviceVariableValue& value) override
    {
        constexpr const char* types[] = {"int", "double", "string", "bool", "int64_t", "uint64_t"};
        const std::string text = std::visit([](const auto& held) { return formatText("{}", held); }, value);
        record("setVariable", name, types[value.index()], text);
        variables[name] = value;
    }
    std::int32_t getVariable_int(const std::string& name) override { return read<std::int32_t>(name); }
    double getVariable_double(const std::string& name) override { return read<double>(name); }
    std::string getVariable_string(const std::string& name) override { return read<std::string>(name); }
    bool getVariable_bool(const std::string& name) override { return read<bool>(name); }
    std::int64_t getVariable_int64_t(const std::string& name) override { return read<std::int64_t>(name); }
    std::uint64_t getVariable_uint64_t(const std::string& name) override { return read<std::uint64_t>(name); }

    std::int64_t getParameter_int64_t(const std::string& name) override
    {
        record("getParameter_int64_t", name);
        return -9000000000;
    }
    std::uint64_t getParameter_uint64_t(const std::string& name) override
    {
        record("getParameter_uint64_t", name);
        return 18000000000000000000u;
    }
    double getParameter_double(const std::string& name) override
    {
        record("getParameter_double", name);
        return parameters.at(name);
    }

    std::int64_t readBus_int64_t(const std::string& bus) override
    {
        record("readBus_int64_t", bus);
        return -3;
    }
    std::uint64_t readBus_uint64_t(const std::string& bus) override
    {
        record("readBus_uint64_t", bus);
        return 3;
    }
    void writeBus(const std::string& bus, const BusValue& value, double delay) override
    {
        const std::string text = std::visit([](auto held) { return formatText("{}", held); }, value);
        record("writeBus", bus, value.index() == 0 ? "int64_t" : "uint64_t", text, delay);
    }

    bool isPinHigh(const std::string& pin) override { return asked("isPinHigh", pin); }
    bool isPinLow(const std::string& pin) override { return asked("isPinLow", pin); }
    bool isBusPinHigh(const std::string& bus, std::int32_t index) override
    {
        return asked("isBusPinHigh", bus, index);
    }
    bool isBusPinLow(const std::string& bus, std::int32_t index) override
    {
        return asked("isBusPinLow", bus, index);
    }
    double simulationTime() override
    {
        record("simulationTime");
        return 1.25;
    }
    bool isEdgeEvent(const std::string& pin) override { return asked("isEdgeEvent", pin); }
    bool isPositiveEdge(const std::string& pin) override { return asked("isPositiveEdge", pin); }
    bool isNegativeEdge(const std::string& pin) override { return asked("isNegativeEdge", pin); }
    void setBusPinHigh(const std::string& bus, std::int32_t index, double delay) override
    {
        record("setBusPinHigh", bus, index, delay);
    }
    void setBusPinLow(const std::string& bus, std::int32_t index, double delay) override
    {
        record("setBusPinLow", bus, index, delay);
    }
    void setPinHigh(const std::string& pin, double delay) override { record("setPinHigh", pin, delay); }
    void setPinLow(const std::string& pin, double delay) override { record("setPinLow", pin, delay); }
    void scheduleWake(const double& time, std::uint64_t wakeIdentifier) override
    {
        record("scheduleWake", time, wakeIdentifier);
    }

private:
    template <class... Arguments>
    void record(std::string_view name, const Arguments&... arguments)
    {
        std::string call(name);
        std::string separator = "(";
        ((call += separator + formatText("{}", arguments), separator = ", "), ...);
        calls.push_back(call + (sizeof...(Arguments) == 0 ? "()" : ")"));
    }

    template <class... Arguments>
    bool asked(std::string_view name, const Arguments&... arguments)
    {
        record(name, arguments...);
        return answer;
    }

    template <class T>
    T read(const std::string& name)
    {
        const auto* held = std::get_if<T>(&variables.at(name));
        if (!held)
            throw std::logic_error("a variable was read as another type");
        return *held;
    }
};

#endif
