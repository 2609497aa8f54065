#include "actionlanguage/expressions/literalrules.h"

#include "actionlanguage/expressions/escapes.h"
#include "actionlanguage/rules/compiledform.h"
#include "actionlanguage/runtime/basicexpressions.h"
#include "actionlanguage/tokens/compilationexception.h"

#include <charconv>

namespace {

constexpr std::string_view charLiteralName = "charliteral";

template <class T>
LinkedExpression literal(T value)
{
    return ExpressionPointer<T>(std::make_unique<LiteralExpression<T>>(std::move(value)));
}

/// The number at the start of a token's text; what is left over is ignored.
template <class Number>
Number converted(const Token& token, const char* failure)
{
    Number value = 0;
    const std::string_view text = token.text();
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec != std::errc())
        throw LiteralConversionException(failure, token.span());
    return value;
}

} // namespace

bool IntLiteralRule::matches(const Token& token) const
{
    return token.is(LiteralKind::integer);
}

bool IntLiteralRule::canLink(const JsonValue& form) const
{
    return form.isInt();
}

ExpressionCompilationObject IntLiteralRule::compile(const Token& token, AbstractCompiler&) const
{
    return {converted<std::int32_t>(token, "compiler failed to convert string to int"), DataType::integer};
}

LinkedExpression IntLiteralRule::link(const JsonValue& form) const
{
    return literal(form.asInt());
}

bool DoubleLiteralRule::matches(const Token& token) const
{
    return token.is(LiteralKind::real);
}

bool DoubleLiteralRule::canLink(const JsonValue& form) const
{
    return form.isDouble();
}

ExpressionCompilationObject DoubleLiteralRule::compile(const Token& token, AbstractCompiler&) const
{
    return {converted<double>(token, "compiler failed to convert string to double"), DataType::real};
}

LinkedExpression DoubleLiteralRule::link(const JsonValue& form) const
{
    return literal(form.asDouble());
}

bool StringLiteralRule::matches(const Token& token) const
{
    return token.is(LiteralKind::string);
}

bool StringLiteralRule::canLink(const JsonValue& form) const
{
    return form.isString();
}

ExpressionCompilationObject StringLiteralRule::compile(const Token& token, AbstractCompiler& compiler) const
{
    return {decodedLiteral(token, compiler), DataType::string};
}

LinkedExpression StringLiteralRule::link(const JsonValue& form) const
{
    return literal(form.asString());
}

bool BoolLiteralRule::matches(const Token& token) const
{
    return token.is(KeywordId::true_) || token.is(KeywordId::false_);
}

bool BoolLiteralRule::canLink(const JsonValue& form) const
{
    return form.isBool();
}

ExpressionCompilationObject BoolLiteralRule::compile(const Token& token, AbstractCompiler&) const
{
    return {token.is(KeywordId::true_), DataType::boolean};
}

LinkedExpression BoolLiteralRule::link(const JsonValue& form) const
{
    return literal(form.asBool());
}

bool CharLiteralRule::matches(const Token& token) const
{
    return token.is(LiteralKind::character);
}

bool CharLiteralRule::canLink(const JsonValue& form) const
{
    return CompiledForm::isRule(form, charLiteralName);
}

ExpressionCompilationObject CharLiteralRule::compile(const Token& token, AbstractCompiler& compiler) const
{
    JsonObject form = CompiledForm::rule(charLiteralName, 2);
    form.insert("value", decodedLiteral(token, compiler));
    return {std::move(form), DataType::character};
}

LinkedExpression CharLiteralRule::link(const JsonValue& form) const
{
    const std::string& text = form.member("value").asString();
    return literal(text.empty() ? char{0} : text.front());
}

std::vector<LiteralRule> constructLiteralRules()
{
    std::vector<LiteralRule> rules;
    rules.push_back(std::make_unique<IntLiteralRule>());
    rules.push_back(std::make_unique<DoubleLiteralRule>());
    rules.push_back(std::make_unique<StringLiteralRule>());
    rules.push_back(std::make_unique<BoolLiteralRule>());
    rules.push_back(std::make_unique<CharLiteralRule>());
    return rules;
}
