#ifndef INITIALISATIONEVENT_H
#define INITIALISATIONEVENT_H

#include "statechart/runtime/abstractevent.h"

/// The first event of every run: "init".
class HALVWIDGETS_EXPORT InitialisationEvent : public AbstractEvent
{
public:
    ~InitialisationEvent() override;

    int type() const override;
};

#endif
