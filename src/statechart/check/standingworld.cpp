#include "statechart/check/standingworld.h"

#include "actionlanguage/analysis/constantfolding.h"

#include <algorithm>

namespace {

using Answer = StandingReading::Answer;
using Kind = StandingThing::Kind;

constexpr std::size_t mostNumbers = 24;

constexpr std::size_t stepsForCondition = 50;
constexpr std::size_t bytesOfCondition = 100; // that so many steps are for: a long one costs more

bool isCall(const JsonValue& form)
{
    if (!form.isObject())
        return false;
    const JsonValue* const rule = form.asObject().find("rule");
    return rule != nullptr && rule->equals("call");
}

double numberIn(const JsonValue& number)
{
    return number.isInt() ? number.asInt() : number.asDouble();
}

/// The number that a "-" and a literal are.
std::optional<double> negated(const JsonObject& form)
{
    const JsonValue* const op = form.find("op");
    const JsonValue* const operand = form.find("expr");
    const bool isNegation = op != nullptr && op->equals("-") && operand != nullptr && operand->isNumber();
    return isNegation ? std::optional(-numberIn(*operand)) : std::nullopt;
}

} // namespace

void StandingWorld::beginWith(const ChartModel& chart, const std::vector<std::size_t>& transitions)
{
    m_values.clear();
    m_wanted.reset();
    m_numbers.clear();
    m_edgePins.clear();
    m_edgePinIndices.clear();
    m_wholeBuses.clear();
    m_truths.clear();
    m_evaluationSteps = 0;
    std::set<std::string_view> seen;
    for (const std::size_t transition : transitions) {
        for (const CheckedText* const condition : chart.transitions()[transition].conditions) {
            if (seen.insert(condition->text->source).second)
                collect(*condition->tree.form);
        }
    }
}

void StandingWorld::collect(const JsonValue& form)
{
    if (form.isNumber())
        addNumber(numberIn(form));
    if (form.isArray())
        std::ranges::for_each(form.asArray(), [&](const JsonValue& element) { collect(element); });
    if (!form.isObject())
        return;
    if (const std::optional<double> number = negated(form.asObject()))
        addNumber(*number);
    if (isCall(form)) {
        const std::optional<StandingReading> reading = m_readings.readingOf(form.asObject());
        if (reading && reading->thing.kind == Kind::edge &&
            m_edgePinIndices.emplace(reading->thing.pin, m_edgePins.size()).second)
            m_edgePins.push_back(reading->thing.pin);
        if (reading && reading->thing.kind == Kind::number)
            m_wholeBuses.insert(reading->thing.key);
        if (const std::optional<double> number = m_readings.numberOf(form.asObject()))
            addNumber(*number);
    }
    for (const JsonMember& member : form.asObject())
        collect(member.value);
}

void StandingWorld::addNumber(double number)
{
    m_numbers.insert(number);
    if (m_numbers.size() > mostNumbers) // those at the ends say most
        m_numbers.erase(std::next(m_numbers.begin(), mostNumbers / 2));
}

std::optional<bool> StandingWorld::holds(const ChartTransition& transition)
{
    m_wanted.reset();
    if (transition.holding != Holding::sometimes)
        return transition.holding == Holding::always;
    if (!transition.areConditionsKnown)
        return std::nullopt;
    for (const CheckedText* const condition : transition.conditions) {
        const std::optional<bool> truth = truthOf(*condition);
        if (truth != true)
            return truth;
    }
    return true;
}

std::optional<bool> StandingWorld::truthOf(const CheckedText& condition)
{
    const std::string_view source = condition.text->source;
    const auto known = m_truths.find(source);
    if (known != m_truths.end() && known->second.decision == m_decisions)
        return known->second.value;
    m_evaluationSteps += stepsForCondition * (1 + source.size() / bytesOfCondition);
    const JsonValue form = substituted(*condition.tree.form);
    const std::optional<bool> truth =
        m_folding.truthOf(sourceTreeOfExpression(form, DataType::boolean, std::string_view()));
    if (truth)
        m_wanted.reset(); // one side was enough
    if (truth || !m_wanted)
        m_truths.insert_or_assign(source, Truth{m_decisions, truth});
    return truth;
}

JsonValue StandingWorld::substituted(const JsonValue& form)
{
    if (form.isArray()) {
        JsonArray elements;
        for (const JsonValue& element : form.asArray())
            elements.push_back(substituted(element));
        return elements;
    }
    if (!form.isObject())
        return form;
    if (isCall(form)) {
        if (std::optional<JsonValue> literal = substitute(form.asObject()))
            return std::move(*literal);
    }
    JsonObject members;
    for (const JsonMember& member : form.asObject())
        members.insert(member.key, substituted(member.value));
    return members;
}

std::optional<JsonValue> StandingWorld::substitute(const JsonObject& call)
{
    if (std::optional<JsonValue> constant = m_readings.constantOf(call))
        return constant;
    const std::optional<StandingReading> reading = m_readings.readingOf(call);
    if (!reading)
        return std::nullopt;
    const std::string bus = reading->thing.key.substr(0, reading->thing.key.rfind(' '));
    if (reading->thing.kind == Kind::level && m_wholeBuses.contains(bus))
        return std::nullopt; // a pin of a bus that is read as a whole, too
    const std::optional<double> value = decided(reading->thing.key);
    if (!value) {
        m_wanted = reading->thing;
        return std::nullopt;
    }
    return ConstantFolding::literal(reading->type, answerOf(*reading, *value));
}

double StandingWorld::answerOf(const StandingReading& reading, double value) const
{
    if (reading.answer == Answer::value)
        return value;
    if (reading.answer == Answer::negated)
        return value == 0.0 ? 1.0 : 0.0;
    const double rising = risingEdgeOf(edgePinIndex(reading.thing.pin));
    const bool isRising = value == rising && reading.answer != Answer::fallingEdge;
    const bool isFalling = value == rising + 1.0 && reading.answer != Answer::risingEdge;
    return isRising || isFalling ? 1.0 : 0.0;
}

/// One behind all for a pin that only states outside of these transitions ask for: it has no edge here.
std::size_t StandingWorld::edgePinIndex(const std::string& pin) const
{
    const auto found = m_edgePinIndices.find(pin);
    return found == m_edgePinIndices.end() ? m_edgePins.size() : found->second;
}

std::optional<double> StandingWorld::decided(const std::string& key) const
{
    const auto found = m_values.find(key);
    return found == m_values.end() ? std::nullopt : std::optional(found->second);
}

void StandingWorld::decide(const std::string& key, double value)
{
    m_values[key] = value;
    ++m_decisions; // no clear of m_truths: that takes as long as there were ever many
}

void StandingWorld::forget(const std::string& key)
{
    m_values.erase(key);
    ++m_decisions;
}
