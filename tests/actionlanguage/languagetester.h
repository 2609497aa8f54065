#ifndef LANGUAGETESTER_H
#define LANGUAGETESTER_H

#include "actionlanguage/codebuilder.h"
#include "actionlanguage/tokens/compilationexception.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// A builder with the general library alone, shared by all tests.
const CodeBuilder& languageBuilder();

/// One line for an error, a warning or a finding: "CODE at POSITION+LENGTH: MESSAGE", or
/// "CODE nowhere: MESSAGE" for one whose place nobody knew.
std::string describe(std::uint32_t code, const SourceSpan& span, const std::string& message);
std::string describe(const CompilationException& error, std::string_view source);
std::string describeFinding(const Diagnostic& finding, std::string_view source);
std::string describeWarning(const Diagnostic& warning, std::string_view source);

/// How a compile of statements ended: "compiled", the described error or findings, or what() of any other
/// exception.
std::string outcomeOf(std::string_view statements);

/// What an action prints when it is compiled, linked and run. Failures come out as exceptions.
std::vector<std::string> printedBy(std::string_view statements);

/// The type and the form of the expression that a list of statements ends with.
struct TypedForm
{
    std::string type;
    JsonValue form;
};
TypedForm lastExpressionOf(const JsonValue& compiledStatements);

/// A compiled expression as text with all parentheses: "(v_0 - (v_1 + 2))". A cast shows as "bool(v_0)".
std::string shapeOf(const JsonValue& expression);

#endif
