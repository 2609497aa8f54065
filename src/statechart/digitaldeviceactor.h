#ifndef DIGITALDEVICEACTOR_H
#define DIGITALDEVICEACTOR_H

#include "actionlanguage/runtime/executioninterface.h"

#include <cstdint>
#include <string>
#include <variant>

/// A value of a device variable; the alternatives stand in the order of the type tags 0 to 5.
using DeviceVariableValue =
    std::variant<std::int32_t, double, std::string, bool, std::int64_t, std::uint64_t>;

/// A value written to a bus.
using BusValue = std::variant<std::int64_t, std::uint64_t>;

/// A running device, as its actions see it. The functions of a device call these operations; a simulator
/// derives from this class and gives them their meaning. Names are identifiers of the definition; a name that
/// the device does not have, and a read of another type, are the simulator's to refuse. Times and delays
/// are in seconds.
class HALVWIDGETS_EXPORT AbstractDigitalDeviceActor : public AbstractExecutionInterface
{
public:
    virtual void setVariable(const std::string& name, const DeviceVariableValue& value) = 0;

    /// The variable must hold this type.
    virtual std::int32_t getVariable_int(const std::string& name) = 0;
    virtual double getVariable_double(const std::string& name) = 0;
    virtual std::string getVariable_string(const std::string& name) = 0;
    virtual bool getVariable_bool(const std::string& name) = 0;
    virtual std::int64_t getVariable_int64_t(const std::string& name) = 0;
    virtual std::uint64_t getVariable_uint64_t(const std::string& name) = 0;

    virtual std::int64_t getParameter_int64_t(const std::string& name) = 0;
    virtual std::uint64_t getParameter_uint64_t(const std::string& name) = 0;
    virtual double getParameter_double(const std::string& name) = 0;

    virtual std::int64_t readBus_int64_t(const std::string& bus) = 0;
    virtual std::uint64_t readBus_uint64_t(const std::string& bus) = 0;

    /// Writes after a delay; 0 is at once.
    virtual void writeBus(const std::string& bus, const BusValue& value, double delay) = 0;

    virtual bool isPinHigh(const std::string& pin) = 0;
    virtual bool isPinLow(const std::string& pin) = 0;
    virtual bool isBusPinHigh(const std::string& bus, std::int32_t index) = 0;
    virtual bool isBusPinLow(const std::string& bus, std::int32_t index) = 0;

    virtual double simulationTime() = 0;

    /// Whether the event being handled is an edge on this pin; a rising, a falling one.
    virtual bool isEdgeEvent(const std::string& pin) = 0;
    virtual bool isPositiveEdge(const std::string& pin) = 0;
    virtual bool isNegativeEdge(const std::string& pin) = 0;

    virtual void setBusPinHigh(const std::string& bus, std::int32_t index, double delay) = 0;
    virtual void setBusPinLow(const std::string& bus, std::int32_t index, double delay) = 0;
    virtual void setPinHigh(const std::string& pin, double delay) = 0;
    virtual void setPinLow(const std::string& pin, double delay) = 0;

    /// Asks for a wake event with this identifier; the meaning of the time is the simulator's.
    virtual void scheduleWake(const double& time, std::uint64_t wakeIdentifier) = 0;
};

#endif
