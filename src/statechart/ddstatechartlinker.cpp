#include "statechart/ddstatechartlinker.h"

#include "statechart/devicesectionslinker.h"

DDStateChartLinker::~DDStateChartLinker() = default;

void DDStateChartLinker::linkTransition(const std::string& identifier, const JsonObject& compiled)
{
    StateChartLinker::linkTransition(identifier, compiled);
    if (const JsonValue* const wakeTime = compiled.find("wakeTime")) {
        m_wakeTimes.emplace_back(identifier, codeBuilder().linkExpression(*wakeTime).take<double>(
                                                 "wake time is not of type double"));
    }
}

std::unique_ptr<DigitalDeviceStateChart> linkDeviceStateChart(const JsonObject& compiled,
                                                              std::shared_ptr<CodeBuilder> codeBuilder)
{
    DDStateChartLinker linker(compiled.at("nstates").asInt(), std::move(codeBuilder));
    auto chart = std::make_unique<DigitalDeviceStateChart>();
    linker.link(compiled, *chart);
    linkDeviceSections(compiled, *chart);

    DDStateChartLinker::WakeTimes wakeTimes = linker.takeWakeTimes();
    chart->wakeTimes.reserve(wakeTimes.size());
    for (auto& [identifier, expression] : wakeTimes)
        chart->wakeTimes.emplace(identifier, std::move(expression));
    return chart;
}
