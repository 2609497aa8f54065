#ifndef CODEBUILDER_H
#define CODEBUILDER_H

#include "actionlanguage/compileresult.h"
#include "actionlanguage/runtime/linkedexpression.h"
#include "actionlanguage/runtime/linkedstatement.h"

#include <memory>
#include <string_view>

class BuildRules;

/// The one face of the action language: text to compiled form, compiled form to executable objects.
///
///     CodeBuilder builder(std::make_shared<const BuildRules>(FunctionRules()));
///     const CompileResult compiled = builder.compileStatements("int x = 1; print(x);");
///     const LinkedStatements action = builder.linkStatements(compiled.value());
///     action.execute(executionInterface);
///
/// A builder only reads its rules: compiles and links may run side by side. The text need not outlive the
/// call. Compiling raises CompilationException for the first error in the text (word it with
/// message(text)), LiteralConversionException for a literal out of range, and
/// TokeniserAllocationFailure for a byte that no token has. Linking raises std::runtime_error, or
/// JsonTypeException where a key is missing or of the wrong kind, for a text that this compiler did not
/// write.
class CodeBuilder
{
public:
    explicit CodeBuilder(std::shared_ptr<const BuildRules> rules);

    /// A list of statements: {"statements": [...], "variables": {id: type}}.
    CompileResult compileStatements(std::string_view text) const;
    /// One expression, cast to bool. What stands behind the expression is ignored.
    CompileResult compileCondition(std::string_view text) const;
    /// One expression, cast to double. What stands behind the expression is ignored.
    CompileResult compileExpression(std::string_view text) const;

    /// @throws WrongTypeException when the form is not of type bool.
    LinkedExpression linkCondition(const JsonValue& compiled) const;
    /// @throws WrongTypeException when the form is not of type double.
    LinkedExpression linkExpression(const JsonValue& compiled) const;
    /// Statements with storage for their variables, zero at first and kept from run to run.
    LinkedStatements linkStatements(const JsonValue& compiled) const;

private:
    std::shared_ptr<const BuildRules> m_rules;
};

#endif
