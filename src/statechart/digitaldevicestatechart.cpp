#include "statechart/digitaldevicestatechart.h"

DigitalDeviceStateChart::~DigitalDeviceStateChart() = default;
