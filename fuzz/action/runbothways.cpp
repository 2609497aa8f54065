#include "action/runbothways.h"

#include "actionlanguage/linker.h"
#include "bounded/anyactor.h"
#include "bounded/boundedform.h"
#include "bounded/boundedrules.h"

#include <bit>
#include <cstdio>
#include <cstdlib>

namespace {

using Trace = std::vector<std::string>;

template <class T>
std::string textOf(const T& value)
{
    if constexpr (std::is_same_v<T, std::string>)
        return value;
    else if constexpr (std::is_same_v<T, double>)
        return value != value ? "nan" : std::to_string(std::bit_cast<std::uint64_t>(value));
    else
        return std::to_string(value);
}

/// A run may end by an exception, which is then part of what it does.
template <class Run>
void runInto(Trace& trace, const Run& run)
{
    AnyActor actor;
    std::string end = "done";
    try {
        run(actor);
    } catch (const std::runtime_error& failure) {
        end = failure.what();
    }
    trace.insert(trace.end(), actor.record().begin(), actor.record().end());
    trace.push_back(std::move(end));
}

Trace traceOfStatements(const JsonValue& form, LinkedNodes nodes)
{
    LinkerActual linker(boundedRules(), nodes);
    const LinkedStatements program = linker.linkProgram(form);
    Trace trace;
    const auto run = [&](AnyActor& actor) { program.execute(actor); };
    runInto(trace, run);
    runInto(trace, run);
    for (const JsonMember& variable : form.member("variables").asObject())
        linker.findVariable(variable.key).visit([&](const auto& storage) {
            trace.push_back(textOf(*storage));
        });
    return trace;
}

Trace traceOfExpression(const JsonValue& form, LinkedNodes nodes)
{
    LinkedExpression expression = LinkerActual(boundedRules(), nodes).linkExpression(form);
    Trace trace;
    runInto(trace, [&](AnyActor& actor) {
        expression.visit([&]<class T>(const ExpressionPointer<T>& node) {
            if constexpr (std::is_void_v<T>)
                node->evaluate(actor);
            else
                trace.push_back(textOf(node->evaluate(actor)));
        });
    });
    return trace;
}

void requireSame(const Trace& plain, const Trace& fused)
{
    if (plain == fused)
        return;
    for (std::size_t place = 0; place < std::max(plain.size(), fused.size()); ++place) {
        const std::string left = place < plain.size() ? plain[place] : "(nothing)";
        const std::string right = place < fused.size() ? fused[place] : "(nothing)";
        if (left != right)
            std::fprintf(stderr, "plain: %s\nfused: %s\n", left.c_str(), right.c_str());
    }
    std::abort();
}

} // namespace

void runStatementsBothWays(JsonValue compiled)
{
    bound(compiled);
    requireSame(traceOfStatements(compiled, LinkedNodes::plain),
                traceOfStatements(compiled, LinkedNodes::fused));
}

void evaluateBothWays(JsonValue compiled)
{
    bound(compiled);
    requireSame(traceOfExpression(compiled, LinkedNodes::plain),
                traceOfExpression(compiled, LinkedNodes::fused));
}
