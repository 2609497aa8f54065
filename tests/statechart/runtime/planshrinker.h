#ifndef PLANSHRINKER_H
#define PLANSHRINKER_H

#include "chartplan.h"

#include <functional>

/// Cuts a plan down for as long as `fails` says of what is left that it fails too: to a plan of which no one
/// event, state, transition, condition or action can go.
ChartPlan shrunk(ChartPlan plan, const std::function<bool(const ChartPlan&)>& fails);

#endif
