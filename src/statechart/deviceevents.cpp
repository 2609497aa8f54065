#include "statechart/deviceevents.h"

AbstractDigitalDeviceEvent::~AbstractDigitalDeviceEvent() = default;

AbstractSimulationActionEvent::~AbstractSimulationActionEvent() = default;

WakeRequestedEvent::~WakeRequestedEvent() = default;

int WakeRequestedEvent::type() const
{
    return wakeRequested;
}
