#include "statechart/package/compilecommand.h"

#include "HalvCore/filepath.h"
#include "HalvCore/widetext.h"
#include "statechart/json/jsonwriter.h"
#include "statechart/package/definitioncompile.h"
#include "statechart/text/format.h"

#include <exception>
#include <fstream>
#include <stdexcept>

using Halvorin::System::FilePath;

namespace {

std::runtime_error failure(const char* format, const FilePath& path)
{
    return std::runtime_error(formatText(format, path.toString().toStdStringView()));
}

/// A folder opens like a file here, and only reading it fails.
bool isFolder(const FilePath& path)
{
    std::error_code ignored;
    return std::filesystem::is_directory(path.toStdPath(), ignored);
}

void compileFile(const FilePath& inputPath, const FilePath& outputPath)
{
    std::ifstream input(inputPath.toStdPath());
    std::ofstream output(outputPath.toStdPath(), std::ios::trunc);
    if (!input.is_open() || isFolder(inputPath))
        throw failure("unable to open input file '{}'", inputPath);
    if (!output.is_open())
        throw failure("unable to open output file '{}'", outputPath);

    write(output, compileDefinitionDocument(readDefinitionDocument(input)));
    output.close();
    if (!output)
        throw failure("unable to write output file '{}'", outputPath);
}

} // namespace

std::vector<std::string> compileDigitalDeviceStateChart(const char* inputPath, const char* outputPath)
{
    try {
        compileFile(Halvorin::System::wideText(inputPath), Halvorin::System::wideText(outputPath));
        return {"Ok"};
    } catch (const std::exception& error) {
        return {"Error", error.what()};
    }
}
