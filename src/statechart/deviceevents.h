#ifndef DEVICEEVENTS_H
#define DEVICEEVENTS_H

#include "statechart/runtime/abstractevent.h"

#include <cstdint>

/// An event of a device.
class HALVWIDGETS_EXPORT AbstractDigitalDeviceEvent : public AbstractEvent
{
public:
    ~AbstractDigitalDeviceEvent() override;
};

/// Something that the device asked the simulator for.
class HALVWIDGETS_EXPORT AbstractSimulationActionEvent : public AbstractDigitalDeviceEvent
{
public:
    ~AbstractSimulationActionEvent() override;
};

/// The time of a wake has come.
class HALVWIDGETS_EXPORT WakeRequestedEvent : public AbstractSimulationActionEvent
{
public:
    explicit WakeRequestedEvent(std::uint64_t wakeIdentifier) : m_wakeIdentifier(wakeIdentifier) {}
    ~WakeRequestedEvent() override;

    int type() const override;

    /// The one that was given to AbstractDigitalDeviceActor::scheduleWake.
    std::uint64_t wakeIdentifier() const { return m_wakeIdentifier; }

private:
    std::uint64_t m_wakeIdentifier;
};

#endif
