#ifndef ANYACTOR_H
#define ANYACTOR_H

#include "statechart/digitaldeviceactor.h"

#include <stdexcept>
#include <vector>

/// A run has used up what the harness grants it.
class BoundReached : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// A device that has everything: it answers every question, in the same way from run to run, and keeps what
/// it was told.
class AnyActor : public AbstractDigitalDeviceActor
{
public:
    using AbstractDigitalDeviceActor::AbstractDigitalDeviceActor;

    /// @throws BoundReached after so many rounds of loops.
    void countRound();

    /// What was printed and done, an entry a call.
    const std::vector<std::string>& record() const { return m_record; }

    void print(const std::string& text) override;
    void setVariable(const std::string& name, const DeviceVariableValue& value) override;
    std::int32_t getVariable_int(const std::string& name) override { return answer<std::int32_t>(name); }
    double getVariable_double(const std::string& name) override { return answer<double>(name) / 4; }
    std::string getVariable_string(const std::string& name) override;
    bool getVariable_bool(const std::string& name) override { return isAnswer(name); }
    std::int64_t getVariable_int64_t(const std::string& name) override { return answer<std::int64_t>(name); }
    std::uint64_t getVariable_uint64_t(const std::string& name) override
    {
        return answer<std::uint64_t>(name);
    }
    std::int64_t getParameter_int64_t(const std::string& name) override { return answer<std::int64_t>(name); }
    std::uint64_t getParameter_uint64_t(const std::string& name) override
    {
        return answer<std::uint64_t>(name);
    }
    double getParameter_double(const std::string& name) override { return answer<double>(name) / 4; }
    std::int64_t readBus_int64_t(const std::string& bus) override { return answer<std::int64_t>(bus); }
    std::uint64_t readBus_uint64_t(const std::string& bus) override { return answer<std::uint64_t>(bus); }
    void writeBus(const std::string& bus, const BusValue& value, double delay) override;
    bool isPinHigh(const std::string& pin) override { return isAnswer(pin); }
    bool isPinLow(const std::string& pin) override { return isAnswer(pin); }
    bool isBusPinHigh(const std::string& bus, std::int32_t) override { return isAnswer(bus); }
    bool isBusPinLow(const std::string& bus, std::int32_t) override { return isAnswer(bus); }
    double simulationTime() override { return answer<double>("time"); }
    bool isEdgeEvent(const std::string& pin) override { return isAnswer(pin); }
    bool isPositiveEdge(const std::string& pin) override { return isAnswer(pin); }
    bool isNegativeEdge(const std::string& pin) override { return isAnswer(pin); }
    void setBusPinHigh(const std::string& bus, std::int32_t index, double delay) override;
    void setBusPinLow(const std::string& bus, std::int32_t index, double delay) override;
    void setPinHigh(const std::string& pin, double delay) override;
    void setPinLow(const std::string& pin, double delay) override;
    void scheduleWake(const double& time, std::uint64_t wakeIdentifier) override;

private:
    /// Another number for each question: their order is seen in the answers.
    template <class T>
    T answer(const std::string& name)
    {
        m_state = m_state * 6364136223846793005u + name.size() + 1442695040888963407u;
        return static_cast<T>(m_state >> 56) - static_cast<T>(16);
    }

    bool isAnswer(const std::string& name) { return answer<std::int32_t>(name) % 2 != 0; }

    void note(std::string entry);

    std::vector<std::string> m_record;
    std::uint64_t m_state = 1;
    std::size_t m_rounds = 0;
    std::size_t m_bytes = 0;
};

#endif
