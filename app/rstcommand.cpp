#include "HalvCore/wholefile.h"
#include "conversion/pythonlspconversionlibrary.h"
#include "exitcode.h"
#include "spool.h"
#include "standardstreams.h"
#include "statechart/outofmemory.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace {

struct Arguments
{
    std::string file = "-";
    bool isPython = false;
};

constexpr std::size_t textSizeLimit = std::size_t{64} * 1024 * 1024;

std::unique_ptr<Halvorin::Text::RSTConversionLibrary> makeLibrary(bool isPython)
{
    if (isPython)
        return std::make_unique<Halvorin::Text::PythonLSPConversionLibrary>();
    return std::make_unique<Halvorin::Text::RSTConversionLibrary>();
}

int convert(const Arguments& arguments)
{
    try {
        const InputPath input(arguments.file, textSizeLimit);
        const auto text = Halvorin::System::readWholeFile(input.path(), textSizeLimit).value();
        const std::string_view bytes = text.toStdStringView();
        QString source = QString::fromUtf8(bytes.data(), static_cast<int>(bytes.size()));
        source.replace(QLatin1String("\r\n"), QLatin1String("\n"));
        StandardStreams::print(makeLibrary(arguments.isPython)->convertToHTML(source).toStdString());
    } catch (const std::exception& error) {
        StandardStreams::printErrorLine(failureText(error));
        return exitInputHasErrors;
    }
    return exitDone;
}

} // namespace

void addRstCommand(CLI::App& application, Action& action)
{
    CLI::App* command =
        application.add_subcommand("rst", "Convert reStructuredText to HTML, which goes to standard output");
    const auto arguments = std::make_shared<Arguments>();
    command->add_flag(
        "--python", arguments->isPython,
        "As what a language server tells of a Python symbol: code, and a docstring with NumPy's sections");
    command->add_option("FILE", arguments->file, "The text in UTF-8, - or nothing for standard input");
    command->footer("Nothing is escaped: HTML in the text reaches the result.");
    command->callback([arguments, &action] { action = [arguments] { return convert(*arguments); }; });
}
