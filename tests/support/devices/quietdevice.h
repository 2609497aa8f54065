#ifndef QUIETDEVICE_H
#define QUIETDEVICE_H

#include "namedevent.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/ddstatechartlinker.h"
#include "statechart/digitaldeviceactor.h"
#include "statechart/json/jsonreader.h"

#include <sstream>

/// A device that has variables and nothing else, and writes nothing down.
class QuietDevice : public AbstractDigitalDeviceActor
{
public:
    using AbstractDigitalDeviceActor::AbstractDigitalDeviceActor;
    using AbstractDigitalDeviceActor::heldVariable;

    bool eventMatches(const Transition& transition, const AbstractEvent& event) override
    {
        if (event.type() == NamedEvent::number)
            return transition.event == static_cast<const NamedEvent&>(event).name;
        return AbstractDigitalDeviceActor::eventMatches(transition, event);
    }

    void print(const std::string&) override {}
    void setVariable(const std::string& name, const DeviceVariableValue& value) override
    {
        holdVariable(name, value);
    }
    std::int32_t getVariable_int(const std::string& name) override
    {
        return heldVariable<std::int32_t>(name);
    }
    double getVariable_double(const std::string& name) override { return heldVariable<double>(name); }
    std::string getVariable_string(const std::string& name) override
    {
        return heldVariable<std::string>(name);
    }
    bool getVariable_bool(const std::string& name) override { return heldVariable<bool>(name); }
    std::int64_t getVariable_int64_t(const std::string& name) override
    {
        return heldVariable<std::int64_t>(name);
    }
    std::uint64_t getVariable_uint64_t(const std::string& name) override
    {
        return heldVariable<std::uint64_t>(name);
    }
    std::int64_t getParameter_int64_t(const std::string&) override { return 0; }
    std::uint64_t getParameter_uint64_t(const std::string&) override { return 0; }
    double getParameter_double(const std::string&) override { return 0; }
    std::int64_t readBus_int64_t(const std::string&) override { return 0; }
    std::uint64_t readBus_uint64_t(const std::string&) override { return 0; }
    void writeBus(const std::string&, const BusValue&, double) override {}
    bool isPinHigh(const std::string&) override { return false; }
    bool isPinLow(const std::string&) override { return true; }
    bool isBusPinHigh(const std::string&, std::int32_t) override { return false; }
    bool isBusPinLow(const std::string&, std::int32_t) override { return true; }
    double simulationTime() override { return 0; }
    bool isEdgeEvent(const std::string&) override { return false; }
    bool isPositiveEdge(const std::string&) override { return false; }
    bool isNegativeEdge(const std::string&) override { return false; }
    void setBusPinHigh(const std::string&, std::int32_t, double) override {}
    void setBusPinLow(const std::string&, std::int32_t, double) override {}
    void setPinHigh(const std::string&, double) override {}
    void setPinLow(const std::string&, double) override {}
    void scheduleWake(const double&, std::uint64_t) override {}
};

/// A device that runs the definition.
inline std::unique_ptr<QuietDevice> quietDevice(const std::string& definition)
{
    const std::shared_ptr<CodeBuilder> builder = DDCodeBuilderFactory::createCodeBuilder();
    std::istringstream input(definition);
    const JsonObject compiled = compileDeviceStateChart(asObject(readDocument(input)), builder);
    return std::make_unique<QuietDevice>(linkDeviceStateChart(compiled, builder));
}

#endif
