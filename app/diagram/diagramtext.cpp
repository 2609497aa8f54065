#include "diagram/diagramtext.h"

std::vector<std::string> labelWithUsage(const DiagramContent& content,
                                        const ChartOutline::Transition& transition)
{
    std::vector<std::string> lines = labelOf(transition);
    if (content.usage != nullptr)
        lines.push_back("(" + std::to_string(content.usage->taken(transition.identifier)) + " times)");
    return lines;
}

void noteMissingTargets(const DiagramContent& content, std::vector<std::string>& unsaid)
{
    for (const ChartOutline::Transition& transition : content.chart.transitions)
        if (!transition.target)
            unsaid.push_back("transition '" + transition.identifier + "' leads to '" + transition.targetName +
                             "', which is no state");
}
