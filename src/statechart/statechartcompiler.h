#ifndef STATECHARTCOMPILER_H
#define STATECHARTCOMPILER_H

#include "actionlanguage/codebuilder.h"
#include "statechart/compilerecord.h"
#include "statechart/json/jsonvalue.h"
#include "statechart/statechartcompilerexception.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_set>

/// Turns the definition of a state chart into the compiled chart: every text of the action language becomes
/// its compiled form, transitions are gathered in one table, the structure is checked. What belongs to a
/// device is left to DDStateChartCompiler. An object serves one compilation.
///
/// @throws StateChartCompilerException for what is wrong with states, transitions and action texts;
/// JsonTypeException "invalid key" or "invalid cast" for a member that is missing or of another type;
/// std::runtime_error for a "start" that is no top-level state.
class StateChartCompiler
{
public:
    /// @param onFailure With OnFailure::goOn nothing is raised for what is wrong in the definition: record()
    /// has the failures and the compiled texts, and what compile() gives is of no use.
    explicit StateChartCompiler(std::shared_ptr<CodeBuilder> codeBuilder,
                                OnFailure onFailure = OnFailure::raise);
    StateChartCompiler(const StateChartCompiler&) = delete;
    StateChartCompiler& operator=(const StateChartCompiler&) = delete;
    virtual ~StateChartCompiler();

    /// The compiled chart: "states", "start", "transitions", and "nstates", the number of nested states.
    virtual JsonObject compile(const JsonObject& definition);

    /// The compiled form of one transition of the state `source`. States call it for each of theirs.
    virtual JsonObject compileTransition(const JsonObject& definition, const std::string& source);

    /// Failures and texts, each with its place; to be read after compile(), whether it failed or not.
    const CompileRecord& record() const { return m_record; }

    /// How deep states may nest. Far above honest use; it keeps hostile definitions from the stack's end.
    static constexpr int maximumStateDepth = 500;

protected:
    CompileRecord& record() { return m_record; }

    /// One expression of type double, put between what has to stand around it.
    JsonValue compileExpressionText(std::string_view text, std::string_view before = {},
                                    std::string_view behind = {});

private:
    using TextCompiler = JsonValue (StateChartCompiler::*)(const std::string& text);

    JsonObject compileStates(const JsonObject& states);
    JsonObject compileState(const JsonObject& definition, const std::string& identifier, int depth);
    JsonObject compileSubstates(const JsonObject& definition, int depth);
    void checkInitial(const JsonObject& definition, JsonObject& compiled);
    void compileTransitions(const JsonObject& definition, const std::string& source, JsonObject& compiled);

    /// What a key of texts holds if it is there, one or a list, compiled one by one into the same key.
    /// Everything that it raises names the key.
    void compileTexts(const JsonObject& definition, const char* key, const char* wrongForm,
                      TextCompiler compileText, JsonObject& compiled);
    JsonArray compileTextList(const JsonArray& texts, TextCompiler compileText);
    JsonValue compileStatementsText(const std::string& text);
    JsonValue compileConditionText(const std::string& text);

    std::unordered_set<std::string> m_nestedStates; // their identifiers
    std::unordered_set<std::string> m_transitionIdentifiers;
    JsonObject m_transitions;
    std::shared_ptr<CodeBuilder> m_codeBuilder;
    CompileRecord m_record;
};

#endif
