#ifndef SCXMLRULES_H
#define SCXMLRULES_H

#include "diagram/chartoutline.h"

#include <string>
#include <vector>

/// In words, where a chart runs by other rules than SCXML's algorithm would: actions that run there and not
/// here, as far as the chart has such actions, and transitions that are tried at another time.
std::vector<std::string> differencesFromScxml(const ChartOutline& chart);

#endif
