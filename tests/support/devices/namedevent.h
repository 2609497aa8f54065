#ifndef NAMEDEVENT_H
#define NAMEDEVENT_H

#include "statechart/runtime/abstractevent.h"

#include <string>

/// An event that triggers the transitions whose event has its name, in the actors of tests and benchmarks.
class NamedEvent : public AbstractEvent
{
public:
    static constexpr int number = 100;

    explicit NamedEvent(std::string eventName) : name(std::move(eventName)) {}

    int type() const override { return number; }

    std::string name;
};

#endif
