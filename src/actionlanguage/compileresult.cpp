#include "actionlanguage/compileresult.h"

CompileFindingsException::CompileFindingsException(std::vector<Diagnostic> findings)
    : m_findings(std::move(findings))
{}

const char* CompileFindingsException::what() const noexcept
{
    return "bad variant access";
}

CompileResult::CompileResult(JsonValue value, std::vector<Diagnostic> warnings)
    : m_outcome(std::move(value)), m_warnings(std::move(warnings))
{}

CompileResult::CompileResult(std::vector<Diagnostic> findings) : m_outcome(std::move(findings)) {}

const JsonValue& CompileResult::value() const&
{
    if (!hasValue())
        throw CompileFindingsException(findings());
    return std::get<JsonValue>(m_outcome);
}

JsonValue CompileResult::value() &&
{
    if (!hasValue())
        throw CompileFindingsException(findings());
    return std::get<JsonValue>(std::move(m_outcome));
}

const std::vector<Diagnostic>& CompileResult::findings() const
{
    static const std::vector<Diagnostic> none;
    return hasValue() ? none : std::get<std::vector<Diagnostic>>(m_outcome);
}
