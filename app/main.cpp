#include "exitcode.h"
#include "globaloptions.h"
#include "standardstreams.h"
#include "subcommands.h"

#include <CLI/CLI.hpp>
#include <QCoreApplication>
#include <QTextCodec>

namespace {

/// Parses the command line and does what it asks for.
int run(int argc, char** argv)
{
    CLI::App application("halvorin: digital devices as state charts, on the command line", "halvorin");
    application.set_version_flag("--version", "halvorin " HALVORIN_VERSION);
    application.require_subcommand(1);
    application.fallthrough(); // global options may stand behind the subcommand too
    application.footer("Exit codes: 0 done, 1 the input has errors, 2 wrong usage.\n"
                       "\"halvorin SUBCOMMAND --help\" explains a subcommand.");
    GlobalOptions globalOptions;
    globalOptions.addTo(application);

    Action action;
    addFunctionsCommand(application, action);
    addCallCommand(application, action);
    addCompileCommand(application, action);
    addCheckCommand(application, action);
    addBundleCommand(application, action);
    addUnbundleCommand(application, action);

    try {
        application.parse(argc, argv);
        globalOptions.apply();
        return action();
    } catch (const CLI::CallForHelp&) {
        StandardStreams::print(application.help());
        return exitDone;
    } catch (const CLI::CallForVersion& version) {
        StandardStreams::printLine(version.what());
        return exitDone;
    } catch (const CLI::ParseError& error) {
        StandardStreams::reportError(std::string(error.what()) + " (--help explains)");
        return exitWrongUsage;
    } catch (const UsageError& error) {
        StandardStreams::reportError(error.what());
        return exitWrongUsage;
    } catch (const std::exception& error) {
        StandardStreams::reportError(error.what());
        return exitInputHasErrors;
    }
}

} // namespace

int main(int argc, char** argv)
{
    StandardStreams::prepare();
    // Narrow text is UTF-8 whatever the locale says.
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("halvorin"));
    return StandardStreams::finish(run(argc, argv));
}
