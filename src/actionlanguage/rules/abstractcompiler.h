#ifndef ABSTRACTCOMPILER_H
#define ABSTRACTCOMPILER_H

#include "actionlanguage/rules/itemstream.h"
#include "actionlanguage/tokens/tokenstream.h"

#include <string>

/// A variable as code refers to it.
struct VariableReference
{
    std::string id;
    DataType type = DataType::unknown;
};

/// What rules ask of the compiler that runs them. Every error is raised as a CompilationException and ends
/// the compile; where the place is not known it is a RequiresPositionException.
class AbstractCompiler
{
public:
    virtual ~AbstractCompiler() = default;

    virtual void addWarning(LanguageWarning code, std::uint64_t position, std::uint64_t length) = 0;
    virtual void addWarning(LanguageWarning code, const SourceSpan& span) = 0;

    /// An expression, cast to bool.
    virtual ExpressionCompilationObject compileCondition(ItemStream& items, bool commaAllowed) = 0;
    virtual ExpressionCompilationObject compileCondition(TokenStream& tokens, bool commaAllowed) = 0;

    /// Everything up to the end of an expression: a ";", a closing bracket that was not opened, or a comma
    /// where none is allowed.
    virtual ExpressionCompilationObject compileExpression(ItemStream& items, bool commaAllowed) = 0;
    virtual ExpressionCompilationObject compileExpression(TokenStream& tokens, bool commaAllowed) = 0;

    /// One item: what was compiled (which is moved out of it), a literal or a variable.
    virtual ExpressionCompilationObject compileItem(ExpressionItem& item, bool requireInitialised) = 0;

    /// The form of the next statement: null for a null statement, an array for a compound one.
    virtual JsonValue compileStatement(TokenStream& tokens) = 0;

    /// Declares a variable in the innermost scope and gives its id, which is never used again.
    virtual std::string declareVariable(std::string_view name, DataType type, bool isConst,
                                        const SourceSpan& span) = 0;

    virtual VariableReference lookUpVariable(const Token& name, bool requireInitialised,
                                             bool requireWritable) = 0;

    virtual void popScope() = 0;
    virtual void pushScope() = 0;
    virtual void markInitialised(const std::string& id) = 0;
    virtual void setConst(const std::string& id, bool isConst) = 0;
};

#endif
