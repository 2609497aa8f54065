#ifndef COMPILERESULT_H
#define COMPILERESULT_H

#include "actionlanguage/tokens/diagnostic.h"
#include "statechart/json/jsonvalue.h"

#include <variant>
#include <vector>

/// The value of a compile was asked for, and there are only findings of the tokeniser.
class HALVWIDGETS_EXPORT CompileFindingsException : public std::bad_variant_access
{
public:
    explicit CompileFindingsException(std::vector<Diagnostic> findings);

    /// "bad variant access"
    const char* what() const noexcept override;
    const std::vector<Diagnostic>& findings() const { return m_findings; }

private:
    std::vector<Diagnostic> m_findings;
};

/// What a compile gives: the compiled form, or what the tokeniser found (then no rule ran); and in both
/// cases the warnings.
class CompileResult
{
public:
    CompileResult(JsonValue value, std::vector<Diagnostic> warnings);
    explicit CompileResult(std::vector<Diagnostic> findings);

    bool hasValue() const { return std::holds_alternative<JsonValue>(m_outcome); }

    /// The compiled form. @throws CompileFindingsException when there is none.
    const JsonValue& value() const&;
    JsonValue value() &&;

    /// The findings of the tokeniser: empty when there is a value. Their words: errorText().
    const std::vector<Diagnostic>& findings() const;

    /// In the order in which they came up. Their words: warningText().
    const std::vector<Diagnostic>& warnings() const { return m_warnings; }

private:
    std::variant<JsonValue, std::vector<Diagnostic>> m_outcome;
    std::vector<Diagnostic> m_warnings;
};

#endif
