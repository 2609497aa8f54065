#include "statechart/statechartcompilerexception.h"

#include "statechart/text/format.h"

#include <utility>

StateChartCompilerException::StateChartCompilerException(std::string path, std::string message,
                                                         std::exception_ptr cause)
    : m_path(std::move(path)), m_message(std::move(message)),
      m_text(formatText("error: {} at '{}'", m_message, m_path)), m_cause(std::move(cause))
{}

StateChartCompilerException::StateChartCompilerException(std::string_view path,
                                                         const StateChartCompilerException& inner)
    : StateChartCompilerException(formatText("{}.{}", path, inner.path()), inner.message(), inner.cause())
{}
