#include "exitcode.h"
#include "hostcalls.h"
#include "spool.h"
#include "standardstreams.h"
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

int compile(const Arguments& arguments)
{
    const InputPath input(arguments.definition, definitionSizeLimit);
    const OutputPath output(arguments.output);
    const auto result = std::get<std::vector<std::string>>(
        callScript("CompileDigitalDeviceStateChart", {input.path(), output.path()}));
    if (result.at(0) != "Ok") {
        StandardStreams::printErrorLine(result.at(1));
        return exitInputHasErrors;
    }
    output.deliver();
    return exitDone;
}

} // namespace

void addCompileCommand(CLI::App& application, Action& action)
{
    CLI::App* command =
        application.add_subcommand("compile", "Compile a device definition to a compiled device");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("DEFINITION", arguments->definition, "The definition, - for standard input")
        ->required();
    command->add_option("OUT", arguments->output, "The compiled device, - for standard output")->required();
    command->footer("OUT is emptied first, and stays empty when the definition has errors.");
    command->callback([arguments, &action] { action = [arguments] { return compile(*arguments); }; });
}
