#include "statechart/runtime/abstractevent.h"

AbstractEvent::~AbstractEvent() = default;
