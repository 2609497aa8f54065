#ifndef CHARTMAKER_H
#define CHARTMAKER_H

#include "chartplan.h"

/// A random chart and random events; the same for the same seed. It has all that charts may have: parallel
/// states without a region, transitions from and to anywhere, equal orders, a nested state that bears the
/// identifier of one at the top.
ChartPlan randomChart(std::uint64_t seed);

#endif
