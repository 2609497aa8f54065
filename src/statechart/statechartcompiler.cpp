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

StateChartCompiler::StateChartCompiler(std::shared_ptr<CodeBuilder> codeBuilder)
    : m_codeBuilder(std::move(codeBuilder))
{}

StateChartCompiler::~StateChartCompiler() = default;

JsonObject StateChartCompiler::compile(const JsonObject& definition)
{
    m_record = CompileRecord();
    m_transitions = JsonObject();
    JsonObject compiled;
    JsonObject compiledStates;
    {
        const CompileRecord::Step step = m_record.enter("states");
        const JsonObject& states = definition.at("states").asObject();
        compiledStates.reserve(states.size());
        for (const JsonMember& member : states) {
            const std::string& identifier = member.key;
            const CompileRecord::Step stateStep = m_record.enter(identifier);
            compiledStates.insert(identifier, within(formatText("states[\"{}\"]", identifier), [&] {
                                      return compileState(member.value.asObject(), identifier, 1);
                                  }));
        }
    }
    const CompileRecord::Step step = m_record.enter("start");
    const std::string& start = definition.at("start").asString();
    if (!compiledStates.contains(start))
        throw std::runtime_error("start identifier does not reference top level state");
    compiled.insert("states", std::move(compiledStates));
    compiled.insert("start", start);
    compiled.insert("transitions", m_transitions);
    compiled.insert("nstates", static_cast<std::int32_t>(m_nestedStates.size()));
    return compiled;
}

JsonObject StateChartCompiler::compileState(const JsonObject& definition, const std::string& identifier,
                                            int depth)
{
    JsonObject compiled;
    {
        const CompileRecord::Step step = m_record.enter("type");
        compiled.insert("type", definition.at("type").asString());
    }
    const JsonValue& type = compiled.at("type");
    const bool isCompound = type.equals("compound");
    if (isCompound || type.equals("parallel"))
        compiled.insert("substates", compileSubstates(definition, depth));
    if (isCompound)
        checkInitial(definition, compiled);
    compiled.insert("ntrans", static_cast<std::int32_t>(compileTransitions(definition, identifier)));
    for (const char* key : {"onEntry", "onExit"}) {
        if (!definition.contains(key))
            continue;
        const std::string wrongForm = formatText("invalid format for {} definition", key);
        compiled.insert(key, compileTexts(definition, key, wrongForm.c_str(),
                                          &StateChartCompiler::compileStatementsText));
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
        const CompileRecord::Step stateStep = m_record.enter(identifier);
        const std::string path = formatText("substates[\"{}\"]", identifier);
        if (m_nestedStates.contains(identifier))
            throw StateChartCompilerException(path, formatText("duplicate state identifier: {}", identifier));
        if (depth >= maximumStateDepth)
            throw StateChartCompilerException(path, "states are nested too deep");
        m_nestedStates.insert(identifier);
        compiled.insert(identifier, within(path, [&] {
                            return compileState(member.value.asObject(), identifier, depth + 1);
                        }));
    }
    return compiled;
}

void StateChartCompiler::checkInitial(const JsonObject& definition, JsonObject& compiled)
{
    const CompileRecord::Step step = m_record.enter("initial");
    const std::string& initial = definition.at("initial").asString();
    compiled.insert("initial", initial);
    if (!definition.at("substates").has(initial))
        throw StateChartCompilerException("initial", formatText("cannot find initial state: {}", initial));
}

std::size_t StateChartCompiler::compileTransitions(const JsonObject& definition, const std::string& source)
{
    const JsonValue* const value = definition.find("transitions");
    if (value == nullptr)
        return 0;
    const CompileRecord::Step step = m_record.enter("transitions");
    const JsonObject& transitions = value->asObject();
    for (const JsonMember& member : transitions) {
        const std::string& identifier = member.key;
        const CompileRecord::Step transitionStep = m_record.enter(identifier);
        const std::string path = formatText("transitions[\"{}\"]", identifier);
        if (m_transitions.contains(identifier)) {
            throw StateChartCompilerException(path,
                                              formatText("duplicate transition identifier: {}", identifier));
        }
        m_transitions.insert(
            identifier, within(path, [&] { return compileTransition(member.value.asObject(), source); }));
    }
    return transitions.size();
}

JsonObject StateChartCompiler::compileTransition(const JsonObject& definition, const std::string& source)
{
    JsonObject compiled{{"src", source}};
    {
        const CompileRecord::Step step = m_record.enter("target");
        compiled.insert("tgt", definition.at("target"));
    }
    {
        const CompileRecord::Step step = m_record.enter("order");
        compiled.insert("order", definition.at("order"));
    }
    if (const JsonValue* const event = definition.find("event"))
        compiled.insert("event", *event);
    compiled.insert("local", false);
    if (definition.contains("actions")) {
        compiled.insert("actions",
                        compileTexts(definition, "actions", "invalid format for 'actions' definition",
                                     &StateChartCompiler::compileStatementsText));
    }
    if (definition.contains("conditions")) {
        compiled.insert("conditions",
                        compileTexts(definition, "conditions", "invalid format for 'conditions' definition",
                                     &StateChartCompiler::compileConditionText));
    }
    return compiled;
}

JsonArray StateChartCompiler::compileTexts(const JsonObject& definition, const char* key,
                                           const char* wrongForm, TextCompiler compileText)
{
    const CompileRecord::Step step = m_record.enter(key);
    const JsonValue& texts = definition.at(key);
    return withinText(key, [&] {
        if (texts.isString())
            return JsonArray{(this->*compileText)(texts.asString())};
        if (!texts.isArray())
            throw std::runtime_error(wrongForm);
        return compileTextList(texts.asArray(), compileText);
    });
}

JsonArray StateChartCompiler::compileTextList(const JsonArray& texts, TextCompiler compileText)
{
    JsonArray compiled;
    compiled.reserve(texts.size());
    for (std::size_t index = 0; index < texts.size(); ++index) {
        const CompileRecord::Step step = m_record.enter(index);
        compiled.push_back(withinText(formatText("[{}]", index),
                                      [&] { return (this->*compileText)(texts[index].asString()); }));
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
    step.keepWarnings(result.warnings());
    return std::move(result).value();
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
    step.keepWarnings(result.warnings());
    return std::move(result).value();
}

JsonValue StateChartCompiler::compileExpressionText(std::string_view text, std::string_view before,
                                                    std::string_view behind)
{
    CompileRecord::TextStep step = m_record.enterText(text, before, behind);
    CompileResult result = m_codeBuilder->compileExpression(step.source());
    JsonValue compiled = result.value();
    step.keepWarnings(result.warnings());
    return compiled;
}
