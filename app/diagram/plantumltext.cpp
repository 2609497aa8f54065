#include "diagram/diagramtext.h"
#include "diagram/escapes.h"

namespace {

constexpr LabelEscapes escapes{"\\\"<>*_~-/&{}[]#|", "&#", "\\n", " "};

std::string escaped(std::string_view text)
{
    return labelEscaped(text, escapes);
}

class PlantUmlWriter
{
public:
    explicit PlantUmlWriter(const DiagramContent& content) : m_content(content), m_chart(content.chart) {}

    std::string write()
    {
        m_text = "@startuml\nhide empty description\n";
        if (m_chart.start)
            line(0, "[*] --> " + name(*m_chart.start));
        for (const std::size_t state : m_chart.topLevel)
            writeState(state, 0);
        // Behind all states: a name that was not told of before would make a state of its own.
        for (const ChartOutline::Transition& transition : m_chart.transitions)
            if (transition.target)
                writeTransition(transition);
        return m_text + "@enduml\n";
    }

private:
    static std::string name(std::size_t state) { return "s" + std::to_string(state); }

    void line(int depth, const std::string& text)
    {
        m_text.append(static_cast<std::size_t>(depth) * 2, ' ').append(text).append("\n");
    }

    std::string colourOf(const ChartOutline::State& state) const
    {
        if (m_content.usage == nullptr)
            return "";
        return m_content.usage->entered(state.path) > 0 ? " #dcf3e1" : " #fbe3e1;line.dashed";
    }

    void writeState(std::size_t index, int depth)
    {
        const ChartOutline::State& state = m_chart.states[index];
        std::string label = escaped(state.identifier);
        if (state.type == ChartOutline::Type::parallel)
            label += " (parallel)";
        if (m_content.usage != nullptr)
            label += " (" + std::to_string(m_content.usage->entered(state.path)) + " times)";
        const bool hasChildren = !state.children.empty();
        line(depth,
             "state \"" + label + "\" as " + name(index) + colourOf(state) + (hasChildren ? " {" : ""));
        if (hasChildren) {
            if (state.initial)
                line(depth + 1, "[*] --> " + name(*state.initial));
            for (const std::size_t child : state.children) {
                if (state.type == ChartOutline::Type::parallel && child != state.children.front())
                    line(depth + 1, "--");
                writeState(child, depth + 1);
            }
            line(depth, "}");
        }
        for (const std::string& text : bodyOf(state))
            line(depth, name(index) + " : " + escaped(text));
    }

    void writeTransition(const ChartOutline::Transition& transition)
    {
        std::string arrow = " --> ";
        if (m_content.usage != nullptr)
            arrow = m_content.usage->taken(transition.identifier) > 0 ? " -[#1b6e35]-> "
                                                                      : " -[#b3261e,dashed]-> ";
        const std::vector<std::string> label = labelWithUsage(m_content, transition);
        line(0, name(transition.source) + arrow + name(*transition.target) +
                    (label.empty() ? "" : " : " + joinedLines(label, "\\n", escaped)));
    }

    const DiagramContent& m_content;
    const ChartOutline& m_chart;
    std::string m_text;
};

} // namespace

DiagramText plantUmlText(const DiagramContent& content)
{
    DiagramText result;
    result.text = PlantUmlWriter(content).write();
    noteMissingTargets(content, result.unsaid);
    return result;
}
