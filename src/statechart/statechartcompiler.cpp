#include "statechart/statechartcompiler.h"

#include "statechart/actionfindings.h"
#include "statechart/text/format.h"

#include <utility>

namespace {

/// Runs `body` with each failure seen from one level further out.
template <class Body>
decltype(auto) within(const std::string& path, Body body)
{
    try {
        return body();
    } catch (const StateChartCompilerException& failure) {
        throw StateChartCompilerException(path, failure);
    }
}

/// The same, and gives every other failure a path: `path` itself.
template <class Body>
decltype(auto) withinText(const std::string& path, Body body)
{
    try {
        return within(path, body);
    } catch (const StateChartCompilerException&) {
        throw;
    } catch (const std::exception& failure) {
        throw StateChartCompilerException(path, failure.what(), std::current_exception());
    }
}

std::string firstFinding(const CompileResult& result, std::string_view source)
{
    const Diagnostic& first = result.findings().front();
    return errorText(first.code, blamedText(source, {first.position, first.length}));
}

} // namespace

StateChartCompiler::StateChartCompiler(std::shared_ptr<CodeBuilder> codeBuilder, OnFailure onFailure)
    : m_codeBuilder(std::move(codeBuilder)), m_record(onFailure)
{}

StateChartCompiler::~StateChartCompiler() = default;

JsonObject StateChartCompiler::compile(const JsonObject& definition)
{
    m_record.clear();
    m_transitionIdentifiers.clear();
    m_transitions = JsonObject();
    JsonObject compiled;
    const JsonObject* states = nullptr;
    m_record.attempt([&] {
        const CompileRecord::Step step = m_record.enter("states");
        states = &definition.at("states").asObject();
        compiled.insert("states", compileStates(*states));
    });
    m_record.attempt([&] {
        const CompileRecord::Step step = m_record.enter("start");
        const std::string& start = definition.at("start").asString();
        if (states != nullptr && !states->contains(start))
            throw std::runtime_error("start identifier does not reference top level state");
        compiled.insert("start", start);
    });
    compiled.insert("transitions", std::exchange(m_transitions, {}));
    compiled.insert("nstates", static_cast<std::int32_t>(m_nestedStates.size()));
    return compiled;
}

JsonObject StateChartCompiler::compileStates(const JsonObject& states)
{
    JsonObject compiled;
    compiled.reserve(states.size());
    for (const JsonMember& member : states) {
        const std::string& identifier = member.key;
        m_record.attempt([&] {
            const CompileRecord::Step step = m_record.enter(identifier);
            compiled.insert(identifier, within(formatText("states[\"{}\"]", identifier), [&] {
                                return compileState(member.value.asObject(), identifier, 1);
                            }));
        });
    }
    return compiled;
}

JsonObject StateChartCompiler::compileState(const JsonObject& definition, const std::string& identifier,
                                            int depth)
{
    JsonObject compiled;
    m_record.attempt([&] {
        const CompileRecord::Step step = m_record.enter("type");
        compiled.insert("type", definition.at("type").asString());
    });
    const JsonValue* const type = compiled.find("type");
    const bool isCompound = type != nullptr && type->equals("compound");
    const bool isParallel = type != nullptr && type->equals("parallel");
    const bool hasLostType = type == nullptr && definition.contains("substates"); // its children are checked
    if (isCompound || isParallel || hasLostType)
        m_record.attempt([&] { compiled.insert("substates", compileSubstates(definition, depth)); });
    if (isCompound)
        m_record.attempt([&] { checkInitial(definition, compiled); });
    m_record.attempt([&] { compileTransitions(definition, identifier, compiled); });
    for (const char* key : {"onEntry", "onExit"}) {
        const std::string wrongForm = formatText("invalid format for {} definition", key);
        compileTexts(definition, key, wrongForm.c_str(), &StateChartCompiler::compileStatementsText,
                     compiled);
    }
    return compiled;
}

JsonObject StateChartCompiler::compileSubstates(const JsonObject& definition, int depth)
{
    const CompileRecord::Step step = m_record.enter("substates");
    const JsonObject& substates = definition.at("substates").asObject();
    JsonObject compiled;
    compiled.reserve(substates.size());
    for (const JsonMember& member : substates) {
        const std::string& identifier = member.key;
        m_record.attempt([&] {
            const CompileRecord::Step stateStep = m_record.enter(identifier);
            const std::string path = formatText("substates[\"{}\"]", identifier);
            if (depth >= maximumStateDepth)
                throw StateChartCompilerException(path, "states are nested too deep");
            if (!m_nestedStates.insert(identifier).second) {
                throw StateChartCompilerException(path,
                                                  formatText("duplicate state identifier: {}", identifier));
            }
            compiled.insert(identifier, within(path, [&] {
                                return compileState(member.value.asObject(), identifier, depth + 1);
                            }));
        });
    }
    return compiled;
}

void StateChartCompiler::checkInitial(const JsonObject& definition, JsonObject& compiled)
{
    const CompileRecord::Step step = m_record.enter("initial");
    const std::string& initial = definition.at("initial").asString();
    compiled.insert("initial", initial);
    const JsonValue* const substates = definition.find("substates");
    const bool isChecked = substates != nullptr && substates->isObject(); // else that is what is wrong
    if (isChecked && !substates->has(initial))
        throw StateChartCompilerException("initial", formatText("cannot find initial state: {}", initial));
}

void StateChartCompiler::compileTransitions(const JsonObject& definition, const std::string& source,
                                            JsonObject& compiled)
{
    const JsonValue* const value = definition.find("transitions");
    if (value == nullptr) {
        compiled.insert("ntrans", 0);
        return;
    }
    const CompileRecord::Step step = m_record.enter("transitions");
    const JsonObject& transitions = value->asObject();
    compiled.insert("ntrans", static_cast<std::int32_t>(transitions.size()));
    for (const JsonMember& member : transitions) {
        const std::string& identifier = member.key;
        m_record.attempt([&] {
            const CompileRecord::Step transitionStep = m_record.enter(identifier);
            const std::string path = formatText("transitions[\"{}\"]", identifier);
            if (!m_transitionIdentifiers.insert(identifier).second) {
                throw StateChartCompilerException(
                    path, formatText("duplicate transition identifier: {}", identifier));
            }
            m_transitions.insert(
                identifier, within(path, [&] { return compileTransition(member.value.asObject(), source); }));
        });
    }
}

JsonObject StateChartCompiler::compileTransition(const JsonObject& definition, const std::string& source)
{
    JsonObject compiled{{"src", source}};
    m_record.attempt([&] {
        const CompileRecord::Step step = m_record.enter("target");
        compiled.insert("tgt", definition.at("target"));
    });
    m_record.attempt([&] {
        const CompileRecord::Step step = m_record.enter("order");
        compiled.insert("order", definition.at("order"));
    });
    if (const JsonValue* const event = definition.find("event"))
        compiled.insert("event", *event);
    compiled.insert("local", false);
    compileTexts(definition, "actions", "invalid format for 'actions' definition",
                 &StateChartCompiler::compileStatementsText, compiled);
    compileTexts(definition, "conditions", "invalid format for 'conditions' definition",
                 &StateChartCompiler::compileConditionText, compiled);
    return compiled;
}

void StateChartCompiler::compileTexts(const JsonObject& definition, const char* key, const char* wrongForm,
                                      TextCompiler compileText, JsonObject& compiled)
{
    const JsonValue* const texts = definition.find(key);
    if (texts == nullptr)
        return;
    m_record.attempt([&] {
        const CompileRecord::Step step = m_record.enter(key);
        compiled.insert(key, withinText(key, [&] {
                            if (texts->isString())
                                return JsonArray{(this->*compileText)(texts->asString())};
                            if (!texts->isArray())
                                throw std::runtime_error(wrongForm);
                            return compileTextList(texts->asArray(), compileText);
                        }));
    });
}

JsonArray StateChartCompiler::compileTextList(const JsonArray& texts, TextCompiler compileText)
{
    JsonArray compiled;
    compiled.reserve(texts.size());
    for (std::size_t index = 0; index < texts.size(); ++index) {
        m_record.attempt([&] {
            const CompileRecord::Step step = m_record.enter(index);
            compiled.push_back(withinText(formatText("[{}]", index),
                                          [&] { return (this->*compileText)(texts[index].asString()); }));
        });
    }
    return compiled;
}

JsonValue StateChartCompiler::compileStatementsText(const std::string& text)
{
    CompileRecord::TextStep step = m_record.enterText(text);
    CompileResult result = m_codeBuilder->compileStatements(step.source());
    if (!result.hasValue()) {
        throw ActionFindingsException(formatText("action compilation failed: {}", firstFinding(result, text)),
                                      result.findings());
    }
    return step.keep(std::move(result));
}

JsonValue StateChartCompiler::compileConditionText(const std::string& text)
{
    CompileRecord::TextStep step = m_record.enterText(text);
    CompileResult result = m_codeBuilder->compileCondition(step.source());
    if (!result.hasValue()) {
        throw ActionFindingsException(formatText("condition compilation failed: '{}' at position '{}'",
                                                 firstFinding(result, text),
                                                 result.findings().front().position),
                                      result.findings());
    }
    return step.keep(std::move(result));
}

JsonValue StateChartCompiler::compileExpressionText(std::string_view text, std::string_view before,
                                                    std::string_view behind)
{
    CompileRecord::TextStep step = m_record.enterText(text, before, behind);
    CompileResult result = m_codeBuilder->compileExpression(step.source());
    return step.keep(std::move(result));
}
