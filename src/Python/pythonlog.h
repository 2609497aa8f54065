#ifndef PYTHONLOG_H
#define PYTHONLOG_H

#include <string>

/// Messages on the channel "python".
namespace PythonLog {

void diagnostic(const std::string& message);
void warning(const std::string& message);
void error(const std::string& message);

} // namespace PythonLog

#endif
