#ifndef INPUTCHANGEEVENT_H
#define INPUTCHANGEEVENT_H

#include "statechart/deviceevents.h"

#include <cstddef>

/// A pin or a bus of the device got another value from outside.
class InputChangeEvent : public AbstractDigitalDeviceEvent
{
public:
    /// @param signal index of the pin or bus
    /// @param isRising for a pin: whether it went high
    InputChangeEvent(std::size_t signal, bool isRising) : m_signal(signal), m_isRising(isRising) {}

    int type() const override { return inputChange; }

    std::size_t signal() const { return m_signal; }
    bool isRising() const { return m_isRising; }

private:
    std::size_t m_signal;
    bool m_isRising;
};

#endif
