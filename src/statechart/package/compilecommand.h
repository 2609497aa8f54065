#ifndef COMPILECOMMAND_H
#define COMPILECOMMAND_H

#include <string>
#include <vector>

/// The script function CompileDigitalDeviceStateChart: compiles a definition file to a compiled device file.
/// The paths are narrow texts. The result is ["Ok"] or ["Error", text]; only the want of memory for the
/// result itself leaves as an exception.
///
/// The output file is created or truncated before anything else is looked at, and is left empty when a
/// later step fails, writing it among them. An input of more than `definitionSizeLimit` bytes is refused.
std::vector<std::string> compileDigitalDeviceStateChart(const char* inputPath, const char* outputPath);

#endif
