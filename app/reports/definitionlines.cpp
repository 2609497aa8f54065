#include "reports/definitionlines.h"

#include "simulator/jsontext.h"
#include "statechart/json/jsonlocator.h"

#include <algorithm>

namespace {

/// Of other states the key is not read.
bool hasSubstates(const JsonValue& state)
{
    return state.has("type") &&
           (state.member("type").equals("compound") || state.member("type").equals("parallel"));
}

class LineFinder
{
public:
    LineFinder(std::string_view text, DefinitionLines& lines) : m_text(text), m_locator(text), m_lines(lines)
    {
        for (std::size_t offset = 0; offset < text.size(); ++offset)
            if (text[offset] == '\n')
                m_lineEnds.push_back(offset);
    }

    void addStates(const JsonValue& states, JsonPath path, const std::string& around)
    {
        for (const JsonMember& state : states.asObject()) {
            path.emplace_back(state.key);
            m_lines.states.emplace(around + state.key, lineOf(path));
            if (hasSubstates(state.value))
                addStates(state.value.member("substates"), extended(path, "substates"),
                          around + state.key + "/");
            if (state.value.has("transitions"))
                addTransitions(state.value.member("transitions"), extended(path, "transitions"));
            path.pop_back();
        }
    }

private:
    static JsonPath extended(JsonPath path, std::string_view key)
    {
        path.emplace_back(std::string(key));
        return path;
    }

    void addTransitions(const JsonValue& transitions, JsonPath path)
    {
        for (const JsonMember& transition : transitions.asObject()) {
            path.emplace_back(transition.key);
            m_lines.transitions.emplace(transition.key, lineOf(path));
            path.pop_back();
        }
    }

    std::size_t lineOf(const JsonPath& path)
    {
        const JsonLocation location = m_locator.locate(path);
        const std::size_t offset = location.key ? location.key->offset : location.value.offset;
        const auto end = std::ranges::lower_bound(m_lineEnds, offset);
        return static_cast<std::size_t>(end - m_lineEnds.begin()) + 1;
    }

    std::string_view m_text;
    JsonLocator m_locator;
    DefinitionLines& m_lines;
    std::vector<std::size_t> m_lineEnds;
};

} // namespace

DefinitionLines::DefinitionLines(std::string_view definition)
{
    const JsonValue document = readJsonText(definition);
    LineFinder(definition, *this).addStates(document.member("states"), {std::string("states")}, {});
}
