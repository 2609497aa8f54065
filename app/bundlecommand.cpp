#include "exitcode.h"
#include "spool.h"
#include "standardstreams.h"
#include "statechart/outofmemory.h"
#include "statechart/package/bundlefile.h"
#include "statechart/package/definitionsizelimit.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <memory>

namespace {

struct Arguments
{
    std::string definition;
    std::string output;
};

int bundle(const Arguments& arguments)
{
    const InputPath input(arguments.definition, definitionSizeLimit);
    const OutputPath output(arguments.output);
    try {
        bundleDevice(input.path(), output.path());
    } catch (const std::exception& error) {
        StandardStreams::printErrorLine(failureText(error));
        return exitInputHasErrors;
    }
    output.deliver();
    return exitDone;
}

} // namespace

void addBundleCommand(CLI::App& application, Action& action)
{
    CLI::App* command = application.add_subcommand(
        "bundle", "Compile a device definition and put both into one bundle (*.hvdsc.zip)");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("DEFINITION", arguments->definition, "The definition, - for standard input")
        ->required();
    command->add_option("OUT", arguments->output, "The bundle, - for standard output")->required();
    command->footer(
        "OUT is written whole, or left as it was when anything fails; so its folder must be one in which\n"
        "a new file can be made. It cannot be DEFINITION itself.");
    command->callback([arguments, &action] { action = [arguments] { return bundle(*arguments); }; });
}
