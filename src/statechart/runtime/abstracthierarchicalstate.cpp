#include "statechart/runtime/abstracthierarchicalstate.h"

AbstractHierarchicalState::~AbstractHierarchicalState() = default;
