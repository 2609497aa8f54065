#ifndef DDSTATECHARTLINKER_H
#define DDSTATECHARTLINKER_H

#include "statechart/digitaldevicestatechart.h"
#include "statechart/statechartlinker.h"

#include <utility>

/// Keeps the wake times of transitions beside the chart that it links.
class HALVWIDGETS_EXPORT DDStateChartLinker : public StateChartLinker
{
public:
    using WakeTimes = std::vector<std::pair<std::string, ExpressionPointer<double>>>;

    using StateChartLinker::StateChartLinker;
    ~DDStateChartLinker() override;

    void linkTransition(const std::string& identifier, const JsonObject& compiled) override;

    /// By the identifiers of the transitions; to be called once, when the chart is linked.
    WakeTimes takeWakeTimes() { return std::move(m_wakeTimes); }

private:
    WakeTimes m_wakeTimes;
};

/// Makes a device that can run from a compiled one: what a simulator does first.
/// @throws what StateChartLinker raises, and std::runtime_error for what is wrong with the device's own
/// sections.
HALVWIDGETS_EXPORT std::unique_ptr<DigitalDeviceStateChart>
linkDeviceStateChart(const JsonObject& compiled, std::shared_ptr<CodeBuilder> codeBuilder);

#endif
