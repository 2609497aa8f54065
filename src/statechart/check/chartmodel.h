#ifndef CHARTMODEL_H
#define CHARTMODEL_H

#include "statechart/check/checkedtext.h"
#include "statechart/json/jsonplace.h"
#include "statechart/json/jsonvalue.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

class ConstantFolding;

/// What is known of the conditions of a transition, whatever the inputs and variables are.
enum class Holding
{
    always,
    sometimes, ///< or not known
    never,
};

struct ChartTransition
{
    std::string_view identifier;
    JsonPlace place;
    const JsonObject* definition = nullptr;
    std::size_t source = 0;            ///< the state that it leaves, once linked
    std::optional<std::size_t> target; ///< none when no state has the name
    std::optional<std::int32_t> order;
    Holding holding = Holding::always;
    std::vector<const CheckedText*> conditions; ///< those that compiled
    bool areConditionsKnown = true;             ///< all of them compiled

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
    JsonPlace place;
    const JsonObject* definition = nullptr;
    Type type = Type::unknown;
    bool isRead = true; ///< by the compiler, which passes over the substates of a state of an unknown type
    std::optional<std::size_t> parent;
    std::vector<std::size_t> children;
    std::optional<std::size_t> initial;   ///< of a compound state
    std::vector<std::size_t> transitions; ///< those that leave it, by order

    /// Whether its type is a word that there is not. One that is missing or no word is an error.
    bool hasUnknownTypeWord() const;
};

/// The states and transitions of a definition with the names in it resolved as the linker resolves them. What
/// is missing or of a wrong kind is left out: the compiler tells of it.
class ChartModel
{
public:
    ChartModel(const JsonObject& definition, const std::vector<CheckedText>& texts,
               const ConstantFolding& folding);

    const std::vector<ChartState>& states() const { return m_states; }
    const std::vector<ChartTransition>& transitions() const { return m_transitions; }

    /// The state in which the chart begins, if it names one.
    std::optional<std::size_t> start() const { return m_start; }

    /// Whether no state, transition or list of them had to be left out.
    bool isWhole() const { return m_isWhole; }

    /// Whether the definition has a state of this name, be it one that is wrong and left out here.
    bool isState(std::string_view name) const { return m_names.contains(name) || m_leftOut.contains(name); }

private:
    const JsonObject& membersOf(const JsonObject& definition, std::string_view section);
    std::optional<std::size_t> addState(const JsonMember& member, const JsonPlace& section,
                                        std::optional<std::size_t> parent, int depth);
    void addChildren(std::size_t state, const JsonObject& definition, int depth);
    void addTransitions(std::size_t state, const JsonObject& definition);
    void addConditions(ChartTransition& transition, const ConstantFolding& folding) const;
    void resolve();
    void sortTransitions();

    std::vector<ChartState> m_states;
    std::vector<ChartTransition> m_transitions;
    std::unordered_map<std::string_view, std::size_t> m_names;
    std::unordered_set<std::string_view> m_leftOut;
    std::unordered_map<const void*, const CheckedText*> m_conditions; // by ActionText::identity
    std::optional<std::size_t> m_start;
    bool m_isWhole = true;
};

#endif
