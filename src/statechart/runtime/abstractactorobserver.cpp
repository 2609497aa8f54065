#include "statechart/runtime/abstractactorobserver.h"

AbstractActorObserver::~AbstractActorObserver() = default;

void AbstractActorObserver::transitionTaken(const Transition&) {}

void AbstractActorObserver::codeBegins(const ActorCode&) {}

void AbstractActorObserver::conditionTested(const Transition&, std::size_t, bool) {}
