#include "HalvCore/filepath.h"
#include "HalvCore/wholefile.h"
#include "exitcode.h"
#include "findingtext.h"
#include "spool.h"
#include "standardstreams.h"
#include "statechart/definitioncheck.h"
#include "statechart/package/definitionsizelimit.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <memory>

using Halvorin::System::FilePath;

namespace {

struct Arguments
{
    std::vector<std::string> definitions;
    bool asJson = false;
};

/// Whether the definition has no errors.
bool check(const std::string& argument, bool asJson)
{
    const InputPath input(argument, definitionSizeLimit);
    const FilePath path(input.path());
    const auto text = Halvorin::System::readWholeFile(path.toStdPath(), definitionSizeLimit).value();
    const std::vector<Finding> findings = checkDefinition(text.toStdStringView());
    for (const Finding& finding : findings)
        StandardStreams::print(asJson ? findingAsJson(input.shownName(), finding)
                                      : findingAsText(input.shownName(), finding));
    return std::ranges::none_of(
        findings, [](const Finding& finding) { return finding.severity == Finding::Severity::error; });
}

/// Every definition is checked, whatever the others are like.
int checkAll(const Arguments& arguments)
{
    int exitCode = exitDone;
    for (const std::string& definition : arguments.definitions) {
        try {
            if (!check(definition, arguments.asJson))
                exitCode = exitInputHasErrors;
        } catch (const std::exception& error) {
            StandardStreams::reportError(error.what());
            exitCode = exitInputHasErrors;
        }
    }
    return exitCode;
}

} // namespace

void addCheckCommand(CLI::App& application, Action& action)
{
    CLI::App* command =
        application.add_subcommand("check", "Compile device definitions in memory and print what is wrong");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("DEFINITION", arguments->definitions, "The definitions, - for standard input")
        ->required();
    command->add_flag("--json", arguments->asJson, "Print one JSON object a line");
    command->footer(
        "A finding reads \"FILE:LINE:COLUMN: error: TEXT at PATH\", with the line and a caret below "
        "it.\nLines and columns count from 1, columns in bytes.");
    command->callback([arguments, &action] { action = [arguments] { return checkAll(*arguments); }; });
}
