#include "diagram/diagramtext.h"
#include "diagram/escapes.h"

#include <algorithm>

namespace {

constexpr LabelEscapes escapes{"#;:\"<>{}[]()%&\\`", "#", "<br>", "#32;"};

std::string escaped(std::string_view text)
{
    return labelEscaped(text, escapes);
}

class MermaidWriter
{
public:
    explicit MermaidWriter(const DiagramContent& content) : m_content(content), m_chart(content.chart) {}

    DiagramText write()
    {
        m_result.text = "stateDiagram-v2\n";
        if (m_content.usage != nullptr)
            m_result.text += "    classDef used fill:#dcf3e1,stroke:#1b6e35\n"
                             "    classDef unused fill:#fbe3e1,stroke:#b3261e,stroke-dasharray:4\n";
        if (m_chart.start)
            line(1, "[*] --> " + name(*m_chart.start));
        for (const std::size_t state : m_chart.topLevel)
            writeState(state, 1);
        for (const ChartOutline::Transition& transition : m_chart.transitions)
            if (transition.target && scopeOf(transition) == std::nullopt)
                writeTransition(transition, 1);
        writeClasses();
        noteMissingTargets(m_content, m_result.unsaid);
        return std::move(m_result);
    }

private:
    static std::string name(std::size_t state) { return "s" + std::to_string(state); }

    void line(int depth, const std::string& text)
    {
        m_result.text.append(static_cast<std::size_t>(depth) * 4, ' ').append(text).append("\n");
    }

    /// The innermost state around both ends of a transition: the diagram has a transition inside of that.
    std::optional<std::size_t> scopeOf(const ChartOutline::Transition& transition) const
    {
        std::optional<std::size_t> scope = m_chart.states[transition.source].parent;
        while (scope && !m_chart.isInside(*transition.target, *scope))
            scope = m_chart.states[*scope].parent;
        return scope;
    }

    void writeState(std::size_t index, int depth)
    {
        const ChartOutline::State& state = m_chart.states[index];
        std::vector<std::string> label{state.identifier};
        if (state.type == ChartOutline::Type::parallel)
            label.front() += " (parallel)";
        if (m_content.usage != nullptr)
            label.front() += " (" + std::to_string(m_content.usage->entered(state.path)) + " times)";
        const std::vector<std::string> body = bodyOf(state);
        const bool hasChildren = !state.children.empty();
        if (!hasChildren)
            label.insert(label.end(), body.begin(), body.end());
        line(depth, "state \"" + joinedLines(label, "<br>", escaped) + "\" as " + name(index));
        if (!hasChildren)
            return;
        for (const std::string& text : body)
            m_result.unsaid.push_back("a state with states inside shows no actions: " + text + " of state '" +
                                      state.identifier + "'");
        line(depth, "state " + name(index) + " {");
        if (state.initial)
            line(depth + 1, "[*] --> " + name(*state.initial));
        for (const std::size_t child : state.children) {
            if (state.type == ChartOutline::Type::parallel && child != state.children.front())
                line(depth + 1, "--");
            writeState(child, depth + 1);
        }
        for (const ChartOutline::Transition& transition : m_chart.transitions)
            if (transition.target && scopeOf(transition) == index)
                writeTransition(transition, depth + 1);
        line(depth, "}");
    }

    void writeTransition(const ChartOutline::Transition& transition, int depth)
    {
        // The diagram draws a transition between two states of one level only.
        if (m_chart.states[transition.source].parent != m_chart.states[*transition.target].parent)
            m_result.unsaid.push_back("transition '" + transition.identifier + "' from '" +
                                      m_chart.states[transition.source].path + "' to '" +
                                      m_chart.states[*transition.target].path +
                                      "' crosses the border of a state: not every version draws it");
        const std::vector<std::string> label = labelWithUsage(m_content, transition);
        line(depth, name(transition.source) + " --> " + name(*transition.target) +
                        (label.empty() ? "" : " : " + joinedLines(label, "<br>", escaped)));
    }

    void writeClasses()
    {
        if (m_content.usage == nullptr)
            return;
        m_result.unsaid.push_back("transitions have no colours: numbers say how often one was taken");
        for (std::size_t index = 0; index < m_chart.states.size(); ++index)
            line(1, "class " + name(index) +
                        (m_content.usage->entered(m_chart.states[index].path) > 0 ? " used" : " unused"));
    }

    const DiagramContent& m_content;
    const ChartOutline& m_chart;
    DiagramText m_result;
};

} // namespace

DiagramText mermaidText(const DiagramContent& content)
{
    return MermaidWriter(content).write();
}
