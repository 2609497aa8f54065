#include "reports/valuechangedump.h"

#include "simulator/simulateddevice.h"
#include "simulator/variablevalue.h"

#include <algorithm>
#include <array>
#include <ostream>
#include <type_traits>
#include <utility>

namespace {

constexpr std::string_view noState = "-";

/// Codes are numbers to the base 94 in the printable characters, the lowest digit first.
std::string codeOf(std::size_t number)
{
    std::string code;
    do {
        code += static_cast<char>('!' + number % 94);
        number /= 94;
    } while (number != 0);
    return code;
}

/// A text as one word, as the viewers read it: as in C, whatever is not printable is escaped.
std::string escaped(std::string_view text)
{
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string result;
    for (const char character : text) {
        const auto byte = static_cast<unsigned char>(character);
        if (byte > 0x20 && byte != 0x7f && character != '\\')
            result += character;
        else
            result.append("\\x").append(1, digits[byte >> 4]).append(1, digits[byte & 15]);
    }
    return result;
}

std::string bits(std::uint64_t value, std::uint32_t width)
{
    std::string text = "b";
    for (std::uint32_t bit = width; bit-- > 0;)
        text += (value >> bit & 1U) != 0 ? '1' : '0';
    return text + " ";
}

std::string dumpValue(const Signal& signal)
{
    return signal.isBus() ? bits(signal.lines, signal.width) : std::string(signal.isHigh(0) ? "1" : "0");
}

struct VariableForm
{
    std::string_view kind;
    std::uint32_t width;
};

/// By the type tags of variables.
constexpr std::array<VariableForm, 6> variableForms{
    {{"integer", 32}, {"real", 64}, {"string", 1}, {"wire", 1}, {"integer", 64}, {"integer", 64}}};
static_assert(std::variant_size_v<DeviceVariableValue> == variableForms.size());

std::string textValue(std::string_view text)
{
    return "s" + escaped(text) + " ";
}

std::string dumpValue(const DeviceVariableValue& value)
{
    return std::visit(
        [&](const auto& current) -> std::string {
            using T = std::decay_t<decltype(current)>;
            if constexpr (std::is_same_v<T, std::string>)
                return textValue(current);
            else if constexpr (std::is_same_v<T, bool>)
                return current ? "1" : "0";
            else if constexpr (std::is_same_v<T, double>)
                return "r" + textOf(value) + " ";
            else
                return bits(static_cast<std::uint64_t>(current), sizeof(T) * 8);
        },
        value);
}

std::string timescaleOf(TimeResolution resolution)
{
    static constexpr std::array<std::string_view, 6> units{"fs", "ps", "ns", "us", "ms", "s"};
    static constexpr std::array<std::string_view, 3> counts{"1 ", "10 ", "100 "};
    const int steps = resolution.exponent() + 15;
    return std::string(counts[static_cast<std::size_t>(steps % 3)])
        .append(units[static_cast<std::size_t>(steps / 3)]);
}

} // namespace

std::string dumpName(const std::string& name)
{
    if (name.empty())
        return "_";
    // "$end" and the like are words of the file.
    return name.front() == '$' ? "\\x24" + escaped(name.substr(1)) : escaped(name);
}

void ValueChangeDump::start(const SimulatedDevice& device)
{
    m_device = &device;
    m_output << "$version halvorin $end\n$timescale " << timescaleOf(device.resolution())
             << " $end\n$scope module " << dumpName(m_name) << " $end\n";
    declareSignals();
    declareVariables();
    declareLevels();
    m_output << "$upscope $end\n$enddefinitions $end\n";
}

std::size_t ValueChangeDump::declare(std::string_view kind, std::uint32_t width, const std::string& name,
                                     std::string value)
{
    const std::string code = codeOf(m_entries.size());
    m_output << "$var " << kind << " " << width << " " << code << " " << name << " $end\n";
    m_due.push_back(m_entries.size());
    m_entries.push_back({code, std::move(value), {}, true});
    return m_entries.size() - 1;
}

void ValueChangeDump::declareSignals()
{
    for (const Signal& signal : m_device->signals().all()) {
        std::string name = dumpName(signal.name);
        if (signal.isBus())
            name += " [" + std::to_string(signal.width - 1) + ":0]";
        m_signals[signal.name] = declare("wire", signal.width, name, dumpValue(signal));
    }
}

void ValueChangeDump::declareVariables()
{
    if (m_device->order().variables.empty())
        return;
    m_output << "$scope module variables $end\n";
    for (const std::string& name : m_device->order().variables) {
        const DeviceVariableValue& value = m_device->variables().at(name);
        const VariableForm& form = variableForms[value.index()];
        m_variables[name] = declare(form.kind, form.width, dumpName(name), dumpValue(value));
    }
    m_output << "$upscope $end\n";
}

void ValueChangeDump::declareLevels()
{
    m_levels = ActiveLevels(m_device->chart());
    m_firstLevel = m_entries.size();
    m_output << "$scope module states $end\n";
    std::vector<const AbstractState*> scopes; // that are open
    for (const ActiveLevels::Level& level : m_levels.all()) {
        const std::vector<const AbstractState*> around = statesAround(level);
        while (scopes.size() > around.size() || !std::equal(scopes.begin(), scopes.end(), around.begin())) {
            m_output << "$upscope $end\n";
            scopes.pop_back();
        }
        for (; scopes.size() < around.size(); scopes.push_back(around[scopes.size()]))
            m_output << "$scope module " << dumpName(around[scopes.size()]->identifier) << " $end\n";
        declare("string", 1, dumpName(nameOf(level)), textValue(noState));
    }
    for (std::size_t open = 0; open <= scopes.size(); ++open)
        m_output << "$upscope $end\n";
}

void ValueChangeDump::setValue(std::size_t index, std::string value)
{
    Entry& entry = m_entries[index];
    if (!entry.isDue && entry.value == value)
        return;
    entry.value = std::move(value);
    if (!entry.isDue)
        m_due.push_back(index);
    entry.isDue = true;
}

void ValueChangeDump::signalChanged(const Signal& signal)
{
    setValue(m_signals.at(signal.name), dumpValue(signal));
}

void ValueChangeDump::variableChanged(const std::string& name, const DeviceVariableValue& value)
{
    setValue(m_variables.at(name), dumpValue(value));
}

void ValueChangeDump::updateLevels()
{
    const std::vector<std::string> active = m_levels.active(m_device->activeStates());
    for (std::size_t level = 0; level < active.size(); ++level)
        setValue(m_firstLevel + level, textValue(active[level].empty() ? noState : active[level]));
}

void ValueChangeDump::timeEnds(Ticks time)
{
    if (std::exchange(m_statesChanged, false))
        updateLevels();
    std::erase_if(m_due, [&](std::size_t index) {
        Entry& entry = m_entries[index];
        entry.isDue = entry.value != entry.written; // it may have changed and changed back
        return !entry.isDue;
    });
    if (m_due.empty())
        return;
    const bool isFirst = m_lastTime < 0;
    m_output << "#" << time << "\n" << (isFirst ? "$dumpvars\n" : "");
    std::ranges::sort(m_due);
    for (const std::size_t index : m_due) {
        Entry& entry = m_entries[index];
        entry.isDue = false;
        entry.written = entry.value;
        m_output << entry.value << entry.code << "\n";
    }
    m_due.clear();
    m_output << (isFirst ? "$end\n" : "");
    m_lastTime = time;
}

void ValueChangeDump::finish(Ticks time)
{
    timeEnds(time);
    if (m_lastTime != time)
        m_output << "#" << time << "\n"; // so that a viewer shows the run to its end
}
