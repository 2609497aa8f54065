#include "languagetester.h"

#include "actionlanguage/buildrules.h"
#include "support/concatenated.h"
#include "support/jsontext.h"
#include "support/recordinginterface.h"

namespace {

std::string shapeOfOperand(const JsonValue& side)
{
    return shapeOf(side.member("expr"));
}

std::string shapeOfCall(const JsonValue& call)
{
    std::string shape = call.member("func").asString() + "(";
    std::string separator;
    for (const JsonValue& argument : call.member("args").asArray()) {
        shape += separator + shapeOf(argument);
        separator = ", ";
    }
    return shape + ")";
}

} // namespace

const CodeBuilder& languageBuilder()
{
    // The general library alone: no functions of a device.
    static const CodeBuilder builder(std::make_shared<const BuildRules>(FunctionRules()));
    return builder;
}

std::string describe(std::uint32_t code, const SourceSpan& span, const std::string& message)
{
    const std::string place = span.position == positionUnknown
                                  ? "nowhere"
                                  : "at " + std::to_string(span.position) + "+" + std::to_string(span.length);
    return std::to_string(code) + " " + place + ": " + message;
}

std::string describe(const CompilationException& error, std::string_view source)
{
    return describe(static_cast<std::uint32_t>(error.code()), error.span(), error.message(source));
}

std::string describeFinding(const Diagnostic& finding, std::string_view source)
{
    const SourceSpan span{finding.position, finding.length};
    return describe(finding.code, span, errorText(finding.code, blamedText(source, span)));
}

std::string describeWarning(const Diagnostic& warning, std::string_view source)
{
    const SourceSpan span{warning.position, warning.length};
    return describe(warning.code, span, warningText(warning.code, blamedText(source, span)));
}

std::string outcomeOf(std::string_view statements)
{
    try {
        const CompileResult result = languageBuilder().compileStatements(statements);
        if (result.hasValue())
            return "compiled";
        std::string outcome;
        for (const Diagnostic& finding : result.findings())
            outcome += describeFinding(finding, statements) + "\n";
        return outcome;
    } catch (const CompilationException& error) {
        return describe(error, statements);
    } catch (const std::exception& error) {
        return error.what();
    }
}

std::vector<std::string> printedBy(std::string_view statements)
{
    RecordingInterface recorder;
    const CompileResult compiled = languageBuilder().compileStatements(statements);
    languageBuilder().linkStatements(compiled.value()).execute(recorder);
    return recorder.lines;
}

TypedForm lastExpressionOf(const JsonValue& compiledStatements)
{
    const JsonArray& statements = compiledStatements.member("statements").asArray();
    const JsonValue& last = statements.at(statements.size() - 1);
    return {last.member("type").asString(), last.member("expr")};
}

std::string shapeOf(const JsonValue& expression)
{
    if (!expression.isObject())
        return toString(expression);
    const std::string& rule = expression.member("rule").asString();
    const auto op = [&] { return std::string_view(expression.member("op").asString()); };
    const auto identifier = [&](std::string_view side) {
        return std::string_view(expression.member(side).member("id").asString());
    };
    if (rule == "charliteral")
        return concatenated({"'", expression.member("value").asString(), "'"});
    if (rule == "var")
        return expression.member("id").asString();
    if (rule == "cast")
        return concatenated({expression.member("to").asString(), "(", shapeOfOperand(expression), ")"});
    if (rule == "binop" || rule == "comma")
        return concatenated({"(", shapeOfOperand(expression.member("lhs")), " ", rule == "comma" ? "," : op(),
                             " ", shapeOfOperand(expression.member("rhs")), ")"});
    if (rule == "assign")
        return concatenated({"(", identifier("lhs"), " ", op(), " ", shapeOf(expression.member("rhs")), ")"});
    if (rule == "unop")
        return concatenated({"(", op(), shapeOfOperand(expression), ")"});
    if (rule == "pincdec")
        return concatenated({"(", op(), identifier("expr"), ")"});
    if (rule == "sincdec")
        return concatenated({"(", identifier("expr"), op(), ")"});
    if (rule == "call")
        return shapeOfCall(expression);
    throw std::runtime_error("no such rule: " + rule);
}
