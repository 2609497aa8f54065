#include "actionlanguage/compiler.h"

#include "actionlanguage/buildrules.h"
#include "actionlanguage/depthguard.h"
#include "actionlanguage/expressionextent.h"
#include "actionlanguage/parenthesisstage.h"
#include "actionlanguage/rules/compiledform.h"
#include "actionlanguage/tokens/compilationexception.h"

#include <algorithm>

JsonValue CompilerActual::compileProgram(TokenStream& tokens)
{
    JsonArray statements;
    statements.reserve(64);
    pushScope();
    while (!tokens.atEnd()) {
        JsonValue statement = compileStatement(tokens);
        if (!statement.isNull())
            statements.push_back(std::move(statement));
    }
    popScope();
    statements.shrink_to_fit(); // charts hold thousands of programs, most of them short

    JsonObject variables;
    variables.reserve(m_symbols.declared().size());
    for (const VariableRecord& record : m_symbols.declared())
        variables.insert(record.id, CompiledForm::spelling(record.type));
    for (const std::size_t index : m_symbols.unused())
        addWarning(LanguageWarning::notUsed, m_symbols.declared()[index].position);

    JsonObject program;
    program.reserve(2);
    program.insert("statements", std::move(statements));
    program.insert("variables", std::move(variables));
    return program;
}

void CompilerActual::addWarning(LanguageWarning code, std::uint64_t position, std::uint64_t length)
{
    m_warnings.push_back({static_cast<std::uint32_t>(code), position, length});
}

void CompilerActual::addWarning(LanguageWarning code, const SourceSpan& span)
{
    addWarning(code, span.position, span.length);
}

ExpressionCompilationObject CompilerActual::compileCondition(ItemStream& items, bool commaAllowed)
{
    ItemList gathered = gatherExpression(items, commaAllowed);
    const SourceSpan next = items.atEnd() ? SourceSpan{} : items.next()->span();
    ExpressionItem compiled = compileGathered(std::move(gathered), commaAllowed, next);
    return castTo(compiled.takeCompiled(), DataType::boolean, compiled.span());
}

ExpressionCompilationObject CompilerActual::compileCondition(TokenStream& tokens, bool commaAllowed)
{
    return compileAs(DataType::boolean, tokens, commaAllowed);
}

ExpressionCompilationObject CompilerActual::compileExpression(ItemStream& items, bool commaAllowed)
{
    ItemList gathered = gatherExpression(items, commaAllowed);
    const SourceSpan next = items.atEnd() ? SourceSpan{} : items.next()->span();
    return compileGathered(std::move(gathered), commaAllowed, next).takeCompiled();
}

ExpressionCompilationObject CompilerActual::compileExpression(TokenStream& tokens, bool commaAllowed)
{
    ItemList gathered = gatherExpression(tokens, commaAllowed);
    return compileGathered(std::move(gathered), commaAllowed, tokens.next().span()).takeCompiled();
}

ExpressionCompilationObject CompilerActual::compileAs(DataType type, TokenStream& tokens, bool commaAllowed)
{
    ItemList gathered = gatherExpression(tokens, commaAllowed);
    ExpressionItem compiled = compileGathered(std::move(gathered), commaAllowed, tokens.next().span());
    return castTo(compiled.takeCompiled(), type, compiled.span());
}

/// @param next what stands behind the items: it is blamed when there are none.
ExpressionItem CompilerActual::compileGathered(ItemList items, bool commaAllowed, const SourceSpan& next)
{
    if (items.empty())
        throw CompilationException(LanguageError::noResultType, {next.position, 0});
    const SourceSpan span = joined(items.front().span(), items.back().span());
    auto compiled = parse(std::move(items), commaAllowed);
    if (compiled.type() == DataType::unknown)
        throw CompilationException(LanguageError::noResultType, span);
    return ExpressionItem(std::move(compiled), span);
}

ExpressionCompilationObject CompilerActual::parse(ItemList items, bool commaAllowed)
{
    if (items.empty())
        return {};
    const SourceSpan start = items.front().span();
    const DepthGuard guard(m_expressionDepth, languageMaximumDepth, [&] { throw NestingException(start); });
    compileParentheses(items, [&](ItemList inner) { return parse(std::move(inner), commaAllowed); });
    applyRules(items, commaAllowed);
    if (items.size() == 1)
        return compileItem(items.front(), true);

    const auto isUncompiled = [](const ExpressionItem& item) { return !item.isCompiled(); };
    const auto isBlamed = [](const ExpressionItem& item) {
        return item.token() && item.token()->kind() != TokenKind::literal;
    };
    auto blamed = std::ranges::find_if(items, isBlamed);
    if (blamed == items.end())
        blamed = std::ranges::find_if(items, isUncompiled);
    if (blamed == items.end())
        throw RequiresPositionException(LanguageError::unexpectedToken20);
    throw CompilationException(LanguageError::unexpectedToken20, blamed->span());
}

void CompilerActual::applyRules(ItemList& items, bool commaAllowed)
{
    const auto& rules = m_rules.expressionRules();
    const std::size_t count = commaAllowed ? rules.size() : rules.size() - 1;
    // Nothing is left to do once there is one operand; one operator alone is still an error of its rule.
    const auto isDone = [&] { return items.size() == 1 && !items.front().isPunctuator(); };
    for (std::size_t index = 0; index < count && !isDone(); ++index)
        rules[index]->apply(items, *this);
}

ExpressionCompilationObject CompilerActual::compileItem(ExpressionItem& item, bool requireInitialised)
{
    if (item.isCompiled())
        return item.takeCompiled();
    const Token& token = *item.token();
    for (const LiteralRule& rule : m_rules.literalRules())
        if (rule->matches(token))
            return rule->compile(token, *this);
    switch (token.kind()) {
    case TokenKind::identifier:
        return m_rules.variableRule().compile(lookUpVariable(token, requireInitialised, false));
    case TokenKind::literal:
        throw CompilationException(LanguageError::unsupportedLiteral, token.span());
    default:
        throw RequiresPositionException(LanguageError::unexpectedToken);
    }
}

JsonValue CompilerActual::compileStatement(TokenStream& tokens)
{
    const Token& token = tokens.next();
    const DepthGuard guard(m_statementDepth, languageMaximumDepth,
                           [&] { throw NestingException(token.span()); });
    for (const StatementRule& rule : m_rules.statementRules())
        if (rule->matches(token))
            return rule->compile(tokens, *this);
    throw CompilationException(LanguageError::unexpectedToken, token.span());
}

std::string CompilerActual::declareVariable(std::string_view name, DataType type, bool isConst,
                                            const SourceSpan& span)
{
    const VariableRecord* record = m_symbols.declare(name, type, isConst, span);
    if (!record)
        throw CompilationException(LanguageError::redefinition, span);
    return record->id;
}

VariableReference CompilerActual::lookUpVariable(const Token& name, bool requireInitialised,
                                                 bool requireWritable)
{
    const VariableRecord* record = m_symbols.find(name.text());
    if (!record)
        throw CompilationException(LanguageError::undeclaredIdentifier, name.span());
    if (requireInitialised && !record->isInitialised)
        throw CompilationException(LanguageError::notInitialised, name.span());
    if (requireWritable && record->isConst)
        throw CompilationException(LanguageError::assignmentToConst, name.span());
    return {record->id, record->type};
}

void CompilerActual::popScope()
{
    m_symbols.popScope();
}

void CompilerActual::pushScope()
{
    m_symbols.pushScope();
}

void CompilerActual::markInitialised(const std::string& id)
{
    m_symbols.markInitialised(id);
}

void CompilerActual::setConst(const std::string& id, bool isConst)
{
    m_symbols.setConst(id, isConst);
}
