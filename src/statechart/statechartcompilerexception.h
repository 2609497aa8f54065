#ifndef STATECHARTCOMPILEREXCEPTION_H
#define STATECHARTCOMPILEREXCEPTION_H

#include "halvwidgetsexport.h"

#include <exception>
#include <string>
#include <string_view>

/// A definition cannot be compiled, and where: what() is "error: MESSAGE at 'PATH'". On its way out it takes
/// on the path of each level that it passes, as in `states["a"].onEntry.[2]`.
class HALVWIDGETS_EXPORT StateChartCompilerException : public std::exception
{
public:
    /// @param cause What was raised underneath, when the message is its text.
    StateChartCompilerException(std::string path, std::string message, std::exception_ptr cause = {});

    /// The same failure seen from one level further out.
    StateChartCompilerException(std::string_view path, const StateChartCompilerException& inner);

    const char* what() const noexcept override { return m_text.c_str(); }

    const std::string& path() const { return m_path; }
    const std::string& message() const { return m_message; }

    /// The exception that this one stands for, such as the CompilationException of an action; or null.
    const std::exception_ptr& cause() const { return m_cause; }

private:
    std::string m_path;
    std::string m_message;
    std::string m_text;
    std::exception_ptr m_cause;
};

#endif
