#include "statechart/check/endlesschains.h"
#include "statechart/check/lints.h"
#include "statechart/text/format.h"

#include <algorithm>

void lintEndlessTransitions(const CheckedDefinition& checked, FindingReport& report)
{
    const ChartModel& chart = checked.chart;
    for (const std::vector<std::size_t>& way : EndlessChains(checked).find()) {
        const ChartTransition& first = chart.transitions()[std::ranges::min(way)];
        report.addAtKey({FindingKind::endlessTransitions,
                         formatText("'{}' leads back to '{}' through transitions without event, for ever",
                                    first.identifier, chart.states()[first.source].identifier)},
                        first.place.path());
    }
}
