#ifndef CHARTMODEL_H
#define CHARTMODEL_H

#include "statechart/check/checkedtext.h"
#include "statechart/json/jsonlocator.h"
#include "statechart/json/jsonvalue.h"

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

struct ChartTransition
{
    std::string_view identifier;
    JsonPath path;
    const JsonObject* definition = nullptr;
    std::size_t source = 0;            ///< the state that it leaves, once linked
    std::optional<std::size_t> target; ///< none when no state has the name
    std::optional<std::int32_t> order;
    bool hasConditions = false;
    std::vector<const CheckedText*> conditions; ///< those that compiled

    bool hasEvent() const { return definition->contains("event"); }
    bool hasEvent(std::string_view name) const;
};

struct ChartState
{
    enum class Type
    {
        atomic,
        compound,
        parallel,
        unknown,
    };

    std::string_view identifier;
    JsonPath path;
    Type type = Type::unknown;
    std::optional<std::size_t> parent;
    std::vector<std::size_t> children;
    std::optional<std::size_t> initial;   ///< of a compound state
    std::vector<std::size_t> transitions; ///< those that leave it, by order
};

/// The states and transitions of a definition with the names in it resolved as the linker resolves them. What
/// is missing or of a wrong kind is left out: the compiler tells of it.
class ChartModel
{
public:
    ChartModel(const JsonObject& definition, const std::vector<CheckedText>& texts);

    const std::vector<ChartState>& states() const { return m_states; }
    const std::vector<ChartTransition>& transitions() const { return m_transitions; }

    /// The state in which the chart begins, if it names one.
    std::optional<std::size_t> start() const { return m_start; }

private:
    std::optional<std::size_t> addState(const JsonMember& member, const JsonPath& parentPath,
                                        std::optional<std::size_t> parent, int depth);
    void addChildren(std::size_t state, const JsonObject& definition, int depth);
    void addTransitions(std::size_t state, const JsonObject& definition);
    void resolve();
    void sortTransitions();

    std::vector<ChartState> m_states;
    std::vector<ChartTransition> m_transitions;
    std::unordered_map<std::string_view, std::size_t> m_names;
    std::map<JsonPath, std::vector<const CheckedText*>> m_conditions; // by the path of their transition
    std::optional<std::size_t> m_start;
};

#endif
