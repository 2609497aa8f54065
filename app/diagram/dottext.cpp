#include "diagram/diagramtext.h"
#include "diagram/escapes.h"

namespace {

std::string escaped(std::string_view text)
{
    return xmlEscaped(text, "<br align=\"left\"/>");
}

struct Look
{
    std::string_view fill;
    std::string_view line;
    std::string_view style; ///< colours alone would not do for everybody
};

constexpr Look plainLook{"#f5f7fa", "#2f3b4c", "solid"};
constexpr Look usedLook{"#dcf3e1", "#1b6e35", "solid"};
constexpr Look unusedLook{"#fbe3e1", "#b3261e", "dashed"};

class DotWriter
{
public:
    explicit DotWriter(const DiagramContent& content) : m_content(content), m_chart(content.chart) {}

    std::string write()
    {
        m_text = "digraph chart {\n"
                 "  compound=true; rankdir=TB; fontname=\"Helvetica\"; nodesep=0.5; ranksep=0.6;\n"
                 "  node [fontname=\"Helvetica\", fontsize=11, shape=box];\n"
                 "  edge [fontname=\"Helvetica\", fontsize=10];\n";
        if (m_chart.start)
            writeInitial("start", *m_chart.start, 1);
        for (const std::size_t state : m_chart.topLevel)
            writeState(state, 1);
        for (const ChartOutline::Transition& transition : m_chart.transitions)
            if (transition.target)
                writeTransition(transition);
        return m_text + "}\n";
    }

private:
    bool isCluster(std::size_t state) const { return !m_chart.states[state].children.empty(); }

    /// The node that edges of a state begin and end at.
    std::string node(std::size_t state) const
    {
        return (isCluster(state) ? "anchor" : "state") + std::to_string(state);
    }

    static std::string cluster(std::size_t state) { return "cluster" + std::to_string(state); }

    void line(int depth, const std::string& text)
    {
        m_text.append(static_cast<std::size_t>(depth) * 2, ' ').append(text).append("\n");
    }

    const Look& look(bool isUsed) const
    {
        if (m_content.usage == nullptr)
            return plainLook;
        return isUsed ? usedLook : unusedLook;
    }

    const Look& lookOf(const ChartOutline::State& state) const
    {
        return look(m_content.usage != nullptr && m_content.usage->entered(state.path) > 0);
    }

    std::string label(const ChartOutline::State& state) const
    {
        std::string name = escaped(state.identifier);
        if (state.type == ChartOutline::Type::parallel)
            name += " (parallel)";
        std::string result = "<<table border=\"0\" cellborder=\"0\" cellspacing=\"0\"><tr><td><b>" +
                             (name.empty() ? " " : name) + "</b></td></tr>";
        std::vector<std::string> body = bodyOf(state);
        if (m_content.usage != nullptr)
            body.push_back("(" + std::to_string(m_content.usage->entered(state.path)) + " times)");
        for (const std::string& text : body)
            result += "<tr><td align=\"left\">" + escaped(text) + "</td></tr>";
        return result + "</table>>";
    }

    void writeInitial(const std::string& name, std::size_t target, int depth)
    {
        line(depth, name + " [shape=circle, style=filled, fillcolor=\"" + std::string(plainLook.line) +
                        "\", label=\"\", width=0.15];");
        line(depth,
             name + " -> " + node(target) + (isCluster(target) ? " [lhead=" + cluster(target) + "];" : ";"));
    }

    void writeState(std::size_t index, int depth)
    {
        const ChartOutline::State& state = m_chart.states[index];
        const Look& shape = lookOf(state);
        const std::string colours =
            "color=\"" + std::string(shape.line) + "\", fillcolor=\"" + std::string(shape.fill) + "\", ";
        if (!isCluster(index)) {
            line(depth, node(index) + " [" + colours + "style=\"rounded,filled," + std::string(shape.style) +
                            "\", label=" + label(state) + "];");
            return;
        }
        line(depth, "subgraph " + cluster(index) + " {");
        const bool isRegion =
            state.parent && m_chart.states[*state.parent].type == ChartOutline::Type::parallel;
        line(depth + 1, "graph [" + colours + "style=\"rounded,filled," +
                            (isRegion && m_content.usage == nullptr ? "dashed" : std::string(shape.style)) +
                            "\", label=" + label(state) + "];");
        line(depth + 1, node(index) + " [shape=point, style=invis];");
        if (state.initial)
            writeInitial("initial" + std::to_string(index), *state.initial, depth + 1);
        for (const std::size_t child : state.children)
            writeState(child, depth + 1);
        line(depth, "}");
    }

    void writeTransition(const ChartOutline::Transition& transition)
    {
        const std::size_t source = transition.source;
        const std::size_t target = *transition.target;
        const Look& shape =
            look(m_content.usage != nullptr && m_content.usage->taken(transition.identifier) > 0);
        std::string attributes =
            "color=\"" + std::string(shape.line) + "\", style=" + std::string(shape.style);
        // An edge can end at a box only from outside of it.
        if (isCluster(source) && source != target && !m_chart.isInside(target, source))
            attributes += ", ltail=" + cluster(source);
        if (isCluster(target) && source != target && !m_chart.isInside(source, target))
            attributes += ", lhead=" + cluster(target);
        const std::vector<std::string> lines = labelWithUsage(m_content, transition);
        if (!lines.empty())
            attributes +=
                ", label=<" + joinedLines(lines, "<br align=\"left\"/>", escaped) + "<br align=\"left\"/>>";
        attributes += ", tooltip=<" + escaped(transition.identifier) + ">";
        line(1, node(source) + " -> " + node(target) + " [" + attributes + "];");
    }

    const DiagramContent& m_content;
    const ChartOutline& m_chart;
    std::string m_text;
};

} // namespace

DiagramText dotText(const DiagramContent& content)
{
    DiagramText result;
    result.text = DotWriter(content).write();
    noteMissingTargets(content, result.unsaid);
    return result;
}
