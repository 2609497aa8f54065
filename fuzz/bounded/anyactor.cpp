#include "bounded/anyactor.h"

#include "statechart/text/format.h"

namespace {

constexpr std::size_t maximumRounds = 1000;
constexpr std::size_t maximumBytes = 1'000'000;

} // namespace

void AnyActor::countRound()
{
    if (++m_rounds > maximumRounds)
        throw BoundReached("the rounds of loops");
}

void AnyActor::print(const std::string& text)
{
    // The sign of a NaN is nobody's promise.
    note(text == "-nan" ? "nan" : text);
}

void AnyActor::setVariable(const std::string& name, const DeviceVariableValue& value)
{
    std::visit(
        [&](const auto& content) {
            note(formatText("setVariable {}", name)), print(formatText("{}", content));
        },
        value);
}

std::string AnyActor::getVariable_string(const std::string& name)
{
    return formatText("text {} of {}", answer<std::int32_t>(name), name.substr(0, 100));
}

void AnyActor::writeBus(const std::string& bus, const BusValue& value, double delay)
{
    std::visit([&](const auto& content) { note(formatText("writeBus {} {}", bus, content)); }, value);
    print(formatText("{}", delay));
}

void AnyActor::setBusPinHigh(const std::string& bus, std::int32_t index, double delay)
{
    note(formatText("setBusPinHigh {} {}", bus, index));
    print(formatText("{}", delay));
}

void AnyActor::setBusPinLow(const std::string& bus, std::int32_t index, double delay)
{
    note(formatText("setBusPinLow {} {}", bus, index));
    print(formatText("{}", delay));
}

void AnyActor::setPinHigh(const std::string& pin, double delay)
{
    note(formatText("setPinHigh {}", pin));
    print(formatText("{}", delay));
}

void AnyActor::setPinLow(const std::string& pin, double delay)
{
    note(formatText("setPinLow {}", pin));
    print(formatText("{}", delay));
}

void AnyActor::scheduleWake(const double& time, std::uint64_t wakeIdentifier)
{
    note(formatText("scheduleWake {}", wakeIdentifier));
    print(formatText("{}", time));
}

void AnyActor::note(std::string entry)
{
    m_bytes += entry.size() + 1;
    if (m_bytes > maximumBytes)
        throw BoundReached("the length of the record");
    m_record.push_back(std::move(entry));
}
