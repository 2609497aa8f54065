#ifndef TRANSITIONSHADOWS_H
#define TRANSITIONSHADOWS_H

#include "statechart/check/chartmodel.h"

/// For each transition of a chart the one that is always taken in its stead: of the same state and event, of
/// a lower order, and with conditions that always hold. Wakes do not compete: each is a transition's own.
std::vector<std::optional<std::size_t>> transitionShadows(const ChartModel& chart);

#endif
