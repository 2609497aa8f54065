#ifndef DIAGRAMTEXT_H
#define DIAGRAMTEXT_H

#include "diagram/chartoutline.h"
#include "diagram/chartusage.h"

#include <string>
#include <vector>

/// A chart in the language of another tool, and in words what that language cannot say.
struct DiagramText
{
    std::string text;
    std::vector<std::string> unsaid;
};

/// What is to be drawn. With a usage, what was used and what was not looks different, and numbers say how
/// often.
struct DiagramContent
{
    const ChartOutline& chart;
    const ChartUsage* usage = nullptr;
};

DiagramText dotText(const DiagramContent& content);      ///< of Graphviz
DiagramText mermaidText(const DiagramContent& content);  ///< a stateDiagram-v2
DiagramText plantUmlText(const DiagramContent& content); ///< a state diagram
DiagramText scxmlText(const DiagramContent& content);    ///< the W3C's State Chart XML 1.0

/// Lines below each other, each through `escape`, with `lineEnd` between.
template <class Escape>
std::string joinedLines(const std::vector<std::string>& lines, std::string_view lineEnd, Escape escape)
{
    std::string result;
    for (const std::string& line : lines) {
        if (!result.empty())
            result += lineEnd;
        result += escape(line);
    }
    return result;
}

/// The lines of a transition's label, with how often it was taken when that is known.
std::vector<std::string> labelWithUsage(const DiagramContent& content,
                                        const ChartOutline::Transition& transition);

/// A note on each transition that leads to no state: no picture has it.
void noteMissingTargets(const DiagramContent& content, std::vector<std::string>& unsaid);

#endif
