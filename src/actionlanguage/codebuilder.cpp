#include "actionlanguage/codebuilder.h"

#include "actionlanguage/buildrules.h"
#include "actionlanguage/compiler.h"
#include "actionlanguage/linker.h"
#include "actionlanguage/runtime/linkexceptions.h"
#include "actionlanguage/tokens/compilationexception.h"
#include "actionlanguage/tokens/tokeniser.h"

namespace {

/// What the three compiles have in common: tokens first, and then `body` with a compiler over them.
template <class Body>
CompileResult compile(const BuildRules& rules, std::string_view text, Body body)
{
    std::vector<Diagnostic> findings;
    const std::vector<Token> tokens = tokenise(text, findings);
    if (!findings.empty())
        return CompileResult(std::move(findings));

    TokenStream stream(tokens, text);
    CompilerActual compiler(rules);
    try {
        JsonValue value = body(compiler, stream);
        return CompileResult(std::move(value), compiler.takeWarnings());
    } catch (const RequiresPositionException& exception) {
        const SourceSpan unknown{positionUnknown, 0};
        throw CompilationException(exception.code(), stream.atEnd() ? unknown : stream.current().span());
    }
}

LinkedExpression ofType(DataType expected, LinkedExpression expression)
{
    if (expression.type() != expected)
        throw WrongTypeException(expected, expression.type());
    return expression;
}

} // namespace

CodeBuilder::CodeBuilder(std::shared_ptr<const BuildRules> rules) : m_rules(std::move(rules)) {}

CompileResult CodeBuilder::compileStatements(std::string_view text) const
{
    return compile(*m_rules, text, [](CompilerActual& compiler, TokenStream& tokens) {
        return compiler.compileProgram(tokens);
    });
}

CompileResult CodeBuilder::compileCondition(std::string_view text) const
{
    return compile(*m_rules, text, [](CompilerActual& compiler, TokenStream& tokens) {
        return compiler.compileAs(DataType::boolean, tokens, false).form();
    });
}

CompileResult CodeBuilder::compileExpression(std::string_view text) const
{
    return compile(*m_rules, text, [](CompilerActual& compiler, TokenStream& tokens) {
        return compiler.compileAs(DataType::real, tokens, false).form();
    });
}

LinkedExpression CodeBuilder::linkCondition(const JsonValue& compiled) const
{
    return ofType(DataType::boolean, LinkerActual(*m_rules).linkExpression(compiled));
}

LinkedExpression CodeBuilder::linkExpression(const JsonValue& compiled) const
{
    return ofType(DataType::real, LinkerActual(*m_rules).linkExpression(compiled));
}

LinkedStatements CodeBuilder::linkStatements(const JsonValue& compiled) const
{
    return LinkerActual(*m_rules).linkProgram(compiled);
}
