#ifndef COMPILER_H
#define COMPILER_H

#include "actionlanguage/rules/abstractcompiler.h"
#include "actionlanguage/symboltable.h"

class BuildRules;

/// Runs the rules over the tokens of one text. Made afresh for each compile; it never recovers: the first
/// error is raised and ends it.
class CompilerActual : public AbstractCompiler
{
public:
    explicit CompilerActual(const BuildRules& rules) : m_rules(rules) {}

    /// A whole text of statements: {"statements": [...], "variables": {id: type}}. A variable that never got
    /// a value is a warning.
    JsonValue compileProgram(TokenStream& tokens);

    /// In the order in which they came up.
    std::vector<Diagnostic> takeWarnings() { return std::move(m_warnings); }

    void addWarning(LanguageWarning code, std::uint64_t position, std::uint64_t length) override;
    void addWarning(LanguageWarning code, const SourceSpan& span) override;
    ExpressionCompilationObject compileCondition(ItemStream& items, bool commaAllowed) override;
    ExpressionCompilationObject compileCondition(TokenStream& tokens, bool commaAllowed) override;
    ExpressionCompilationObject compileExpression(ItemStream& items, bool commaAllowed) override;
    ExpressionCompilationObject compileExpression(TokenStream& tokens, bool commaAllowed) override;
    ExpressionCompilationObject compileItem(ExpressionItem& item, bool requireInitialised) override;
    JsonValue compileStatement(TokenStream& tokens) override;
    std::string declareVariable(std::string_view name, DataType type, bool isConst,
                                const SourceSpan& span) override;
    VariableReference lookUpVariable(const Token& name, bool requireInitialised,
                                     bool requireWritable) override;
    void popScope() override;
    void pushScope() override;
    void markInitialised(const std::string& id) override;
    void setConst(const std::string& id, bool isConst) override;

    /// An expression of the token stream, cast to `type` with its whole span.
    ExpressionCompilationObject compileAs(DataType type, TokenStream& tokens, bool commaAllowed);

private:
    ExpressionItem compileGathered(ItemList items, bool commaAllowed, const SourceSpan& next);
    ExpressionCompilationObject parse(ItemList items, bool commaAllowed);
    void applyRules(ItemList& items, bool commaAllowed);

    const BuildRules& m_rules;
    SymbolTable m_symbols;
    std::vector<Diagnostic> m_warnings;
    unsigned m_expressionDepth = 0;
    unsigned m_statementDepth = 0;
};

#endif
