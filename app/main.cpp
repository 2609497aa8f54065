#include "commandwords.h"
#include "endingsignals.h"
#include "exitcode.h"
#include "globaloptions.h"
#include "standardstreams.h"
#include "statechart/outofmemory.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <QCoreApplication>
#include <QTextCodec>
#include <algorithm>
#include <string>
#include <vector>

namespace {

constexpr auto exitCodes =
    "Exit codes: 0 done, 1 the input has errors or a file cannot be read or written, 2 wrong usage.";

/// Parses the command line and does what it asks for.
int run(const std::vector<std::string>& commandLine)
{
    CLI::App application("halvorin: digital devices as state charts, on the command line", "halvorin");
    application.set_version_flag("--version", "halvorin " HALVORIN_VERSION);
    application.require_subcommand(1);
    application.fallthrough(); // global options may stand behind the subcommand too
    application.footer(std::string(exitCodes) + "\n\"halvorin SUBCOMMAND --help\" explains a subcommand.");
    GlobalOptions globalOptions;
    globalOptions.addTo(application);

    Action action;
    CommandWords words;
    addFunctionsCommand(application, action);
    addCallCommand(application, action, words.callArguments);
    addCompileCommand(application, action);
    addCheckCommand(application, action);
    addBundleCommand(application, action);
    addUnbundleCommand(application, action);
    addRunCommand(application, action);
    addDiagramCommand(application, action);
    addLspCommand(application, action);
    addRstCommand(application, action);
    addHighlightCommand(application, action);
    for (CLI::App* command : application.get_subcommands({}))
        command->footer(command->get_footer() + "\n" + exitCodes);

    words = splitCommandWords(application, commandLine);
    try {
        application.parse(std::vector<std::string>(words.parsed.rbegin(),
                                                   words.parsed.rend())); // it takes them from the end
        globalOptions.apply();
        return action();
    } catch (const CLI::CallForHelp&) {
        StandardStreams::print(application.help());
        return exitDone;
    } catch (const CLI::CallForVersion& version) {
        StandardStreams::printLine(version.what());
        return exitDone;
    } catch (const CLI::ParseError& error) {
        const std::string& word = words.notASubcommand;
        StandardStreams::reportError((word.empty() ? error.what() : "'" + word + "' is no subcommand") +
                                     " (--help explains)");
        return exitWrongUsage;
    } catch (const UsageError& error) {
        StandardStreams::reportError(error.what());
        return exitWrongUsage;
    } catch (const std::exception& error) {
        StandardStreams::reportError(failureText(error));
        return exitInputHasErrors;
    }
}

} // namespace

int main(int argc, char** argv)
{
    StandardStreams::prepare();
    cleanUpOnEndingSignals();
    // Qt takes the words that it knows out of the command line; to us they are arguments like any other.
    const std::vector<std::string> commandLine(argv + std::min(argc, 1), argv + argc);
    // Narrow text is UTF-8 whatever the locale says.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("halvorin"));
    return StandardStreams::finish(run(commandLine));
}
