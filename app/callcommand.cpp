#include "HostSupport/scripthost.h"
#include "exitcode.h"
#include "hostcalls.h"
#include "standardstreams.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <memory>
#include <string>
#include <vector>

namespace {

void printResult(const HostSupport::ScriptValue& result)
{
    if (const bool* answer = std::get_if<bool>(&result))
        StandardStreams::printLine(*answer ? "true" : "false");
    if (const auto* texts = std::get_if<std::vector<std::string>>(&result)) {
        for (const std::string& text : *texts)
            StandardStreams::printLine(text);
    }
}

/// The arguments are no options of the parser's, so its usage does not name them.
class CallFormatter : public CLI::Formatter
{
public:
    std::string make_usage(const CLI::App*, std::string) const override
    {
        return "Usage: halvorin call [OPTIONS] NAME [ARG]...\n";
    }
};

} // namespace

void addCallCommand(CLI::App& application, Action& action, const std::vector<std::string>& arguments)
{
    CLI::App* command =
        application.add_subcommand("call", "Call a script function or command as a script would");
    const auto name = std::make_shared<std::string>();
    command->add_option("NAME", *name, "The function or command; \"halvorin functions\" lists them")
        ->required();
    command->formatter(std::make_shared<CallFormatter>());
    command->footer(
        "Everything behind NAME is an argument, also what begins with a dash; options stand before NAME.\n"
        "Each string of the result comes on a line, a boolean as true or false. The call itself succeeds\n"
        "also when its result speaks of an error.");
    command->callback([name, &arguments, &action] {
        action = [name, &arguments] {
            HostSupport::start();
            printResult(callScript(*name, arguments));
            return exitDone;
        };
    });
}
