#include "actionlanguage/expressions/functionrule.h"

#include "actionlanguage/expressions/castrule.h"
#include "actionlanguage/expressions/operatorrule.h"
#include "actionlanguage/rules/rulesweeps.h"
#include "actionlanguage/runtime/linkexceptions.h"
#include "actionlanguage/tokens/compilationexception.h"
#include "actionlanguage/types/conversions.h"

#include <algorithm>
#include <optional>

namespace {

constexpr std::string_view ruleName = "call";

bool isCall(const ExpressionItem& item, std::string_view name, std::span<const ExpressionItem> behind)
{
    return item.isIdentifier() && item.token()->text() == name && !behind.empty() &&
           behind.front().isToken(PunctuatorId::openParenthesis);
}

/// How many arguments would be cast to reach an overload; nothing when it cannot be reached.
std::optional<std::size_t> distance(const std::vector<DataType>& from, const std::vector<DataType>& to)
{
    if (from.size() != to.size())
        return std::nullopt;
    std::size_t casts = 0;
    for (std::size_t index = 0; index < from.size(); ++index) {
        if (from[index] == to[index])
            continue;
        if (!canCast(from[index], to[index]))
            return std::nullopt;
        ++casts;
    }
    return casts;
}

} // namespace

FunctionRule::FunctionRule(std::string_view name, FunctionOverloads overloads)
    : m_name(name), m_overloads(std::move(overloads))
{}

bool FunctionRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isRule(form, ruleName) && form.has("func") && form.member("func").equals(m_name);
}

void FunctionRule::apply(ItemList& items, AbstractCompiler& compiler) const
{
    const auto standsHere = [&](const ExpressionItem& item) {
        return item.isIdentifier() && item.token()->text() == m_name;
    };
    if (std::ranges::none_of(items, standsHere))
        return;
    LeftToRightSweep sweep(items);
    while (!sweep.atEnd()) {
        if (!isCall(sweep.item(), m_name, sweep.behind())) {
            sweep.pass();
            continue;
        }
        const Token name = *sweep.item().token();
        ItemStream stream(sweep.behind().subspan(1));
        std::vector<ExpressionCompilationObject> arguments;
        while (!stream.nextIs(PunctuatorId::closeParenthesis)) {
            if (stream.atEnd())
                throw CompilationException(LanguageError::missingCloseParenthesis, name.span());
            arguments.push_back(compiler.compileExpression(stream, false));
            stream.take(PunctuatorId::comma);
        }
        const SourceSpan span = joined(name.span(), stream.next()->span());
        // the name, its parenthesis, the arguments, and the closing one
        const std::size_t count = 3 + stream.consumed();
        sweep.reduce(count, call(name, std::move(arguments), span));
    }
    sweep.finish();
}

ExpressionItem FunctionRule::call(const Token& name, std::vector<ExpressionCompilationObject> arguments,
                                  const SourceSpan& span) const
{
    std::vector<DataType> types;
    types.reserve(arguments.size());
    for (const ExpressionCompilationObject& argument : arguments)
        types.push_back(argument.type());
    const AbstractFunctionOperatorImpl& overload = resolve(name, types);

    unsigned depth = 0;
    JsonArray argumentTypes;
    JsonArray argumentForms;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const DataType type = overload.argumentTypes()[index];
        auto argument = castTo(std::move(arguments[index]), type, name.span());
        depth = std::max(depth, argument.depth());
        argumentTypes.push_back(CompiledForm::spelling(type));
        argumentForms.push_back(std::move(argument).form());
    }
    JsonObject form = CompiledForm::rule(ruleName);
    form.insert("func", m_name);
    form.insert("argTypes", std::move(argumentTypes));
    form.insert("args", std::move(argumentForms));
    return reducedItem(std::move(form), overload.returnType(), depth + 1, span, name.span());
}

const AbstractFunctionOperatorImpl& FunctionRule::resolve(const Token& name,
                                                          const std::vector<DataType>& argumentTypes) const
{
    if (const auto* exact = findExact(argumentTypes))
        return *exact;
    const AbstractFunctionOperatorImpl* nearest = nullptr;
    std::size_t lowest = 0;
    bool isAmbiguous = false;
    for (const FunctionOverload& overload : m_overloads) {
        const auto casts = distance(argumentTypes, overload->argumentTypes());
        if (!casts || (nearest && *casts > lowest))
            continue;
        isAmbiguous = nearest && *casts == lowest;
        nearest = overload.get();
        lowest = *casts;
    }
    if (!nearest)
        throw CompilationException(LanguageError::noOverload, name.span());
    if (isAmbiguous)
        throw CompilationException(LanguageError::ambiguousOverload, name.span());
    return *nearest;
}

const AbstractFunctionOperatorImpl* FunctionRule::findExact(const std::vector<DataType>& argumentTypes) const
{
    for (const FunctionOverload& overload : m_overloads)
        if (overload->argumentTypes() == argumentTypes)
            return overload.get();
    return nullptr;
}

LinkedExpression FunctionRule::link(const JsonValue& form, AbstractLinker& linker) const
{
    std::vector<DataType> types;
    for (const JsonValue& type : form.member("argTypes").asArray())
        types.push_back(linkedType(type.asString()));
    const auto* overload = findExact(types);
    if (!overload)
        throw std::runtime_error("unable to find linked function call");

    const JsonArray& argumentForms = form.member("args").asArray();
    if (argumentForms.size() != types.size())
        throw std::runtime_error("function call argument size mismatch");
    std::vector<LinkedExpression> arguments;
    arguments.reserve(argumentForms.size());
    for (const JsonValue& argument : argumentForms)
        arguments.push_back(linker.linkExpression(argument));
    return overload->createExpression(std::move(arguments));
}
