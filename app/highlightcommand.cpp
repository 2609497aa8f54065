#include "HalvCore/application.h"
#include "deviceinput.h"
#include "exitcode.h"
#include "highlight/sourcelines.h"
#include "highlight/tokenwriter.h"
#include "linetokeniser/linetokeniser.h"
#include "resources/libraryresources.h"
#include "standardstreams.h"
#include "statechart/package/definitionsizelimit.h"
#include "subcommands.h"
#include "terminaltext.h"

#include <CLI/CLI.hpp>
#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <memory>
#include <optional>

namespace {

using Halvorin::TextMate::LineTokeniser;

struct Arguments
{
    std::string file;
    std::optional<std::string> grammar;
    std::string form = std::string(tokenForms().front().name);
};

std::vector<std::string> formNames()
{
    std::vector<std::string> names;
    for (const TokenForm& form : tokenForms())
        names.emplace_back(form.name);
    return names;
}

/// Why no grammar can be read from a file, or null. Loading never fails: what cannot be read gives a grammar
/// without rules.
const char* reasonAgainstGrammar(const QString& path)
{
    const QFileInfo file(path);
    if (path == QLatin1String("-"))
        return "a grammar has a name: its suffix says how it is read";
    if (!file.exists())
        return "there is no such file";
    if (!file.isFile())
        return "not a file that holds a grammar";
    if (!LineTokeniser::canRead(path))
        return "the name of a grammar ends in .json, .dat or .tmLanguage";
    if (!file.isReadable())
        return "the file cannot be read";
    if (static_cast<std::size_t>(file.size()) > definitionSizeLimit)
        return "the file is too large";
    return nullptr;
}

LineTokeniser makeTokeniser(const std::optional<std::string>& grammar)
{
    if (!grammar)
        return LineTokeniser(Halvorin::LibraryResources::pythonGrammar());
    if (grammar->empty())
        throw UsageError("--grammar: the name is empty");
    const QString path = QFile::decodeName(grammar->c_str());
    if (const char* reason = reasonAgainstGrammar(path))
        throw std::runtime_error(*grammar + ": " + reason);
    LineTokeniser tokeniser(path);
    if (!tokeniser.hasRules())
        throw std::runtime_error(*grammar + ": not a grammar: it has no rules in \"patterns\"");
    return tokeniser;
}

/// The grammar engine tells Qt's debug stream what it makes nothing of.
void logMessage(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message)
{
    using Halvorin::System::MessageSeverity;
    const MessageSeverity severity =
        type == QtDebugMsg ? MessageSeverity::diagnostic : MessageSeverity::warning;
    Halvorin::System::Application::instance().logger().log(severity, "grammar",
                                                           withoutControlCharacters(message.toStdString()));
}

SourceLines readLines(const std::string& file)
{
    try {
        return SourceLines(readTextInput(file));
    } catch (const std::invalid_argument& error) {
        throw std::runtime_error(shownInputName(file) + ": " + error.what());
    }
}

int highlight(const Arguments& arguments)
{
    qInstallMessageHandler(logMessage);
    LineTokeniser tokeniser = makeTokeniser(arguments.grammar);
    SourceLines lines = readLines(arguments.file);
    const auto writer =
        std::ranges::find(tokenForms(), arguments.form, &TokenForm::name)->makeWriter(StandardStreams::print);
    writer->start(QString::fromStdString(shownInputName(arguments.file)));
    QString line;
    while (StandardStreams::takesMore() && lines.next(line))
        writer->line(line, tokeniser.nextLine(line));
    writer->end();
    return exitDone;
}

} // namespace

void addHighlightCommand(CLI::App& application, Action& action)
{
    CLI::App* command =
        application.add_subcommand("highlight", "Show a source text in colours, or its tokens");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("FILE", arguments->file, "The text, or - for standard input")->required();
    command
        ->add_option("--grammar", arguments->grammar,
                     "A TextMate grammar: .json, .dat (CBOR) or .tmLanguage (property list) [Python's]")
        ->type_name("FILE");
    command->add_option("--as", arguments->form, "ansi, html or json [ansi]")
        ->type_name("FORM")
        ->check(CLI::IsMember(formNames()));
    command->footer("ansi has colours for a terminal, wherever the output goes: for a pager that takes them, "
                    "such as less -R.\nhtml is a document of its own. json is a line a source line: an array "
                    "of {\"start\", \"length\", \"scopes\"}.");
    command->callback([arguments, &action] { action = [arguments] { return highlight(*arguments); }; });
}
