#include "diagram/diagramtext.h"
#include "diagram/escapes.h"
#include "diagram/scxmlrules.h"
#include "statechart/text/engineeringnumber.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <set>

namespace {

std::string escaped(std::string_view text)
{
    return xmlEscaped(text, "&#10;");
}

/// A time as style sheets have it, which know no exponents.
std::string secondsText(double seconds)
{
    std::array<char, 400> text;
    const auto result =
        std::to_chars(text.data(), text.data() + text.size(), seconds, std::chars_format::fixed);
    return std::string(text.data(), result.ptr) + "s";
}

std::string attribute(const std::string& name, const std::string& value)
{
    return " " + name + "=\"" + escaped(value) + "\"";
}

/// Whether a text can be an identifier of XML. Only plain letters and digits are taken for sure.
bool isXmlName(std::string_view text)
{
    const auto isLetter = [](char character) {
        return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
               character == '_';
    };
    const auto isInside = [&](char character) {
        return isLetter(character) || (character >= '0' && character <= '9') || character == '-' ||
               character == '.';
    };
    return !text.empty() && isLetter(text.front()) && std::ranges::all_of(text, isInside);
}

class ScxmlWriter
{
public:
    explicit ScxmlWriter(const DiagramContent& content) : m_content(content), m_chart(content.chart)
    {
        nameStates();
    }

    DiagramText write()
    {
        m_result.text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                        "<scxml xmlns=\"http://www.w3.org/2005/07/scxml\" "
                        "xmlns:device=\"http://schemas.halvorin.example/scxml\" version=\"1.0\" "
                        "datamodel=\"null\"" +
                        (m_chart.start ? attribute("initial", m_names[*m_chart.start]) : "") + ">\n";
        for (const std::size_t state : m_chart.topLevel)
            writeState(state, 1);
        m_result.text += "</scxml>\n";
        for (const std::string& difference : differencesFromScxml(m_chart))
            unsaid(difference);
        noteMissingTargets(m_content, m_result.unsaid);
        if (m_content.usage != nullptr)
            m_result.unsaid.emplace_back("coverage: there are no colours");
        return std::move(m_result);
    }

private:
    void nameStates()
    {
        std::set<std::string> taken;
        for (std::size_t index = 0; index < m_chart.states.size(); ++index) {
            const std::string& identifier = m_chart.states[index].identifier;
            std::string name = identifier;
            if (!isXmlName(identifier) || taken.contains(identifier)) {
                name = "state." + std::to_string(index);
                while (taken.contains(name))
                    name += '_';
                unsaid("the name of state '" + m_chart.states[index].path + "', which is '" + name +
                       "' there");
            }
            taken.insert(name);
            m_names.push_back(name);
        }
    }

    void unsaid(const std::string& what) { m_result.unsaid.push_back(what); }

    void line(int depth, const std::string& text)
    {
        m_result.text.append(static_cast<std::size_t>(depth) * 2, ' ').append(text).append("\n");
    }

    void writeActions(const std::vector<std::string>& actions, int depth, const std::string& where)
    {
        const std::string place = " (" + where + ")";
        for (const std::string& action : actions) {
            line(depth, "<device:action>" + escaped(action) + "</device:action>");
            unsaid("an action, kept as an element that others do not run: " + action + place);
        }
    }

    void writeState(std::size_t index, int depth)
    {
        const ChartOutline::State& state = m_chart.states[index];
        const std::string element = state.type == ChartOutline::Type::parallel ? "parallel" : "state";
        line(depth, "<" + element + attribute("id", m_names[index]) +
                        (state.initial ? attribute("initial", m_names[*state.initial]) : "") + ">");
        writeEntry(index, depth + 1);
        writeExit(index, depth + 1);
        for (const ChartOutline::Transition& transition : m_chart.transitions)
            if (transition.source == index && transition.target)
                writeTransition(transition, depth + 1);
        for (const std::size_t child : state.children)
            writeState(child, depth + 1);
        line(depth, "</" + element + ">");
    }

    /// The wakes of a state are armed when it is entered.
    std::vector<const ChartOutline::Transition*> wakesOf(std::size_t state) const
    {
        std::vector<const ChartOutline::Transition*> wakes;
        for (const ChartOutline::Transition& transition : m_chart.transitions)
            if (transition.source == state && (transition.wakeTime || transition.wakeTimeCalc))
                wakes.push_back(&transition);
        return wakes;
    }

    /// An event's name is words with points between, and blanks are between events.
    std::string wakeEvent(const ChartOutline::Transition& transition) const
    {
        const std::string& identifier = transition.identifier;
        if (isXmlName(identifier) && identifier.find('.') == std::string::npos)
            return "wake." + identifier;
        return "wake-" + std::to_string(&transition - m_chart.transitions.data());
    }

    void writeEntry(std::size_t index, int depth)
    {
        const ChartOutline::State& state = m_chart.states[index];
        const std::vector<const ChartOutline::Transition*> wakes = wakesOf(index);
        if (state.onEntry.empty() && wakes.empty())
            return;
        line(depth, "<onentry>");
        writeActions(state.onEntry, depth + 1, "entry of state '" + state.path + "'");
        for (const ChartOutline::Transition* const wake : wakes)
            line(depth + 1, "<send" + attribute("event", wakeEvent(*wake)) +
                                attribute("id", wakeEvent(*wake)) + delayOf(*wake) + "/>");
        line(depth, "</onentry>");
    }

    std::string delayOf(const ChartOutline::Transition& wake)
    {
        if (wake.wakeTime)
            return attribute("delay", secondsText(parseEngineeringNumber(*wake.wakeTime)));
        unsaid("the time of a wake, kept as an attribute that others do not read: " + *wake.wakeTimeCalc +
               " (transition '" + wake.identifier + "')");
        return attribute("device:delayexpr", *wake.wakeTimeCalc);
    }

    void writeExit(std::size_t index, int depth)
    {
        const ChartOutline::State& state = m_chart.states[index];
        const std::vector<const ChartOutline::Transition*> wakes = wakesOf(index);
        if (state.onExit.empty() && wakes.empty())
            return;
        line(depth, "<onexit>");
        writeActions(state.onExit, depth + 1, "exit of state '" + state.path + "'");
        for (const ChartOutline::Transition* const wake : wakes)
            line(depth + 1, "<cancel" + attribute("sendid", wakeEvent(*wake)) + "/>");
        line(depth, "</onexit>");
    }

    void writeTransition(const ChartOutline::Transition& transition, int depth)
    {
        std::string start = "<transition";
        if (transition.wakeTime || transition.wakeTimeCalc)
            start += attribute("event", wakeEvent(transition));
        else if (transition.event)
            start += attribute("event", *transition.event);
        for (std::size_t index = 0; index < transition.conditions.size(); ++index) {
            // One attribute of a name is all that an element takes.
            start += attribute("device:cond" + (index == 0 ? "" : std::to_string(index + 1)),
                               transition.conditions[index]);
            unsaid("a condition, kept as an attribute that others do not read: " +
                   transition.conditions[index] + " (transition '" + transition.identifier + "')");
        }
        start +=
            attribute("device:id", transition.identifier) + attribute("target", m_names[*transition.target]);
        if (transition.actions.empty()) {
            line(depth, start + "/>");
            return;
        }
        line(depth, start + ">");
        writeActions(transition.actions, depth + 1, "transition '" + transition.identifier + "'");
        line(depth, "</transition>");
    }

    const DiagramContent& m_content;
    const ChartOutline& m_chart;
    std::vector<std::string> m_names; // by state
    DiagramText m_result;
};

} // namespace

DiagramText scxmlText(const DiagramContent& content)
{
    return ScxmlWriter(content).write();
}
