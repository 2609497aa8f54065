#include "statechart/digitaldeviceactor.h"

#include "statechart/text/format.h"

#include <stdexcept>

AbstractDigitalDeviceActor::AbstractDigitalDeviceActor(std::shared_ptr<const DigitalDeviceStateChart> chart)
    : AbstractActor(chart)
{
    if (chart)
        findWakeStates();
}

AbstractDigitalDeviceActor::~AbstractDigitalDeviceActor() = default;

const DigitalDeviceStateChart& AbstractDigitalDeviceActor::chart() const
{
    return static_cast<const DigitalDeviceStateChart&>(AbstractActor::chart());
}

bool AbstractDigitalDeviceActor::eventMatches(const Transition& transition, const AbstractEvent& event)
{
    switch (event.type()) {
    case AbstractEvent::inputChange:
        return transition.event == "change";
    case AbstractEvent::wakeRequested: {
        const auto wake = m_pendingWakes.find(static_cast<const WakeRequestedEvent&>(event).wakeIdentifier());
        return wake != m_pendingWakes.end() && wake->second == &transition;
    }
    default:
        return AbstractActor::eventMatches(transition, event);
    }
}

void AbstractDigitalDeviceActor::start()
{
    const auto& initialValues = chart().variables;
    m_variables.reserve(initialValues.size());
    for (const auto& [name, value] : initialValues)
        m_variables[name] = value;
    AbstractActor::start();
}

void AbstractDigitalDeviceActor::dispatch(const AbstractEvent& event)
{
    AbstractActor::dispatch(event);
    for (std::size_t index = 0; index < m_newlyEntered.size(); ++index)
        armWakes(m_wakeStates.at(m_newlyEntered[index].get()));
    m_newlyEntered.clear();
}

void AbstractDigitalDeviceActor::stateEntered(const std::shared_ptr<AbstractState>& state)
{
    if (m_wakeStates.contains(state.get()))
        m_newlyEntered.push_back(state);
}

void AbstractDigitalDeviceActor::stateExited(const std::shared_ptr<AbstractState>& state)
{
    const auto found = m_wakeStates.find(state.get());
    if (found == m_wakeStates.end())
        return;
    for (const std::uint64_t identifier : found->second.pendingWakes)
        m_spareNodes.push_back(m_pendingWakes.extract(identifier));
    found->second.pendingWakes.clear();
    std::erase(m_newlyEntered, state);
}

const DeviceVariableValue& AbstractDigitalDeviceActor::knownVariable(const std::string& name) const
{
    const auto found = m_variables.find(name);
    if (found == m_variables.end())
        refuseVariable(name);
    return found->second;
}

void AbstractDigitalDeviceActor::holdVariable(const std::string& name, const DeviceVariableValue& value)
{
    const auto found = m_variables.find(name);
    if (found == m_variables.end())
        refuseVariable(name);
    found->second = value;
}

void AbstractDigitalDeviceActor::refuseVariable(const std::string& name)
{
    throw std::runtime_error(formatText("unknown variable: '{}'", name));
}

void AbstractDigitalDeviceActor::refuseVariable(const std::string& name, std::size_t expected,
                                                std::size_t held)
{
    throw std::runtime_error(formatText("variable '{}' is read as '{}', and holds '{}'", name,
                                        deviceVariableTypes[expected], deviceVariableTypes[held]));
}

void AbstractDigitalDeviceActor::findWakeStates()
{
    const auto& wakeTimes = chart().wakeTimes;
    if (wakeTimes.empty())
        return;
    for (const std::shared_ptr<AbstractState>& state : chart().allStates()) {
        for (const Transition& transition : state->transitions) {
            const auto time = wakeTimes.find(transition.identifier);
            if (time != wakeTimes.end())
                m_wakeStates[state.get()].transitions.push_back({&transition, time->second.get()});
        }
    }
}

void AbstractDigitalDeviceActor::armWakes(WakeState& state)
{
    for (const auto& [transition, expression] : state.transitions) {
        const std::uint64_t identifier = m_nextWakeIdentifier++;
        if (observer() != nullptr)
            observer()->codeBegins({ActorCode::Kind::wakeTime, 0, nullptr, transition});
        const double time = expression->evaluate(*this);
        scheduleWake(time, identifier);
        keepPendingWake(identifier, *transition);
        state.pendingWakes.push_back(identifier);
    }
}

void AbstractDigitalDeviceActor::keepPendingWake(std::uint64_t wakeIdentifier, const Transition& transition)
{
    if (m_spareNodes.empty()) {
        m_pendingWakes.emplace(wakeIdentifier, &transition);
        return;
    }
    auto node = std::move(m_spareNodes.back());
    m_spareNodes.pop_back();
    node.key() = wakeIdentifier;
    node.mapped() = &transition;
    m_pendingWakes.insert(std::move(node));
}
