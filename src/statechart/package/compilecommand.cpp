#include "statechart/package/compilecommand.h"

#include "HalvCore/filepath.h"
#include "HalvCore/widetext.h"
#include "statechart/json/jsonwriter.h"
#include "statechart/outofmemory.h"
#include "statechart/package/definitioncompile.h"
#include "statechart/package/definitionsizelimit.h"
#include "statechart/text/format.h"

#include <array>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <system_error>

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

/// All of the input, which may be one that cannot be rewound, as the place of a syntax error asks for.
std::string textOf(std::istream& input, const FilePath& path)
{
    std::string text;
    std::array<char, 65536> block{};
    while (input.read(block.data(), block.size()) || input.gcount() > 0) {
        text.append(block.data(), static_cast<std::size_t>(input.gcount()));
        if (text.size() > definitionSizeLimit)
            throw failure("input file '{}' is too large for a definition", path);
    }
    if (input.bad())
        throw failure("unable to read input file '{}'", path);
    return text;
}

void writeOutput(std::ofstream& output, const JsonValue& device, const FilePath& path)
{
    write(output, device);
    output.close();
    if (output)
        return;
    std::error_code ignored; // what is no regular file cannot be emptied
    std::filesystem::resize_file(path.toStdPath(), 0, ignored);
    throw failure("unable to write output file '{}'", path);
}

void compileFile(const FilePath& inputPath, const FilePath& outputPath)
{
    std::ifstream input(inputPath.toStdPath());
    std::ofstream output(outputPath.toStdPath(), std::ios::trunc);
    if (!input.is_open() || isFolder(inputPath))
        throw failure("unable to open input file '{}'", inputPath);
    if (!output.is_open())
        throw failure("unable to open output file '{}'", outputPath);

    const JsonObject definition = readDefinitionDocument(textOf(input, inputPath));
    writeOutput(output, compileDefinitionDocument(definition), outputPath);
}

} // namespace

std::vector<std::string> compileDigitalDeviceStateChart(const char* inputPath, const char* outputPath)
{
    try {
        compileFile(Halvorin::System::wideText(inputPath), Halvorin::System::wideText(outputPath));
        return {"Ok"};
    } catch (const std::exception& error) {
        return {"Error", failureText(error)};
    }
}
