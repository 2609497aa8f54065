#include "deviceinput.h"
#include "exitcode.h"
#include "languageclient/lsppythonclient.h"
#include "lsp/languagequestion.h"
#include "lsp/trafficlog.h"
#include "standardstreams.h"
#include "subcommands.h"

#include "HostSupport/options.h"

#include <CLI/CLI.hpp>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStandardPaths>
#include <QTextCodec>
#include <array>
#include <filesystem>
#include <memory>
#include <optional>

namespace {

using Kind = LanguageQuestion::Kind;

struct Question
{
    const char* option;
    Kind kind;
    const char* explanation;
};

constexpr std::array<Question, 4> questions{{
    {"--complete", Kind::completion, "What may stand at the place"},
    {"--hover", Kind::hover, "What the server says of what stands at the place"},
    {"--signature", Kind::signature, "The signature of the call around the place"},
    {"--diagnostics", Kind::diagnostics, "What the server finds in the whole file"},
}};

struct Arguments
{
    std::string file;
    std::string place;
    std::array<bool, questions.size()> asked{};
    std::string server;
    std::string log;
    double timeout = 60;
};

Kind askedKind(const Arguments& arguments)
{
    std::optional<Kind> kind;
    for (std::size_t index = 0; index < questions.size(); ++index) {
        if (!arguments.asked[index])
            continue;
        if (kind)
            throw UsageError("only one of --complete, --hover, --signature and --diagnostics can be asked");
        kind = questions[index].kind;
    }
    if (!kind)
        throw UsageError("one of --complete, --hover, --signature and --diagnostics is needed");
    return *kind;
}

/// The program that the option says, else the host's option, else what the search path has.
QString serverProgram(const std::string& wanted)
{
    const std::string configured = sp_GetStringOption("python.languageServer").tocs();
    const std::string name = !wanted.empty()       ? wanted
                             : !configured.empty() ? configured
                                                   : "pyright-langserver";
    const bool isPath = name.find('/') != std::string::npos;
    const QString given = QFile::decodeName(name.c_str());
    const QString program =
        QStandardPaths::findExecutable(isPath ? QFileInfo(given).absoluteFilePath() : given);
    if (program.isEmpty())
        throw std::runtime_error(name + ": there is no such language server (--server names one)");
    return program;
}

LanguageQuestion languageQuestion(const Arguments& arguments)
{
    LanguageQuestion question;
    question.kind = askedKind(arguments);
    if (question.kind != Kind::diagnostics && arguments.place.empty())
        throw UsageError("--at LINE:COLUMN is needed");
    TextPlace place;
    if (!arguments.place.empty()) {
        try {
            place = parseTextPlace(arguments.place);
        } catch (const std::invalid_argument& error) {
            throw UsageError(std::string("--at: ") + error.what());
        }
    }
    const std::string bytes = readTextInput(arguments.file);
    QTextCodec::ConverterState state; // passes over a byte order mark
    question.text =
        QTextCodec::codecForName("UTF-8")->toUnicode(bytes.data(), static_cast<int>(bytes.size()), &state);
    if (state.invalidChars > 0 || state.remainingChars > 0)
        throw std::runtime_error(shownInputName(arguments.file) + ": the text is not UTF-8");
    // A server wants to know where the text belongs: standard input belongs to the folder that we are in.
    const QString path =
        arguments.file == "-" ? QStringLiteral("stdin.py") : QFile::decodeName(arguments.file.c_str());
    question.document = QUrl::fromLocalFile(QFileInfo(path).absoluteFilePath());
    try {
        question.place = protocolPlace(question.text, place);
    } catch (const std::invalid_argument& error) {
        throw std::runtime_error(shownInputName(arguments.file) + ": " + error.what());
    }
    return question;
}

std::string jsonLine(const QJsonValue& value)
{
    const QByteArray array = QJsonDocument(QJsonArray{value}).toJson(QJsonDocument::Compact);
    return array.mid(1, array.size() - 2).toStdString(); // a document is an object or an array
}

/// Opening a log empties it: it must not be the file whose text was asked about.
void refuseLogOverFile(const Arguments& arguments)
{
    std::error_code ignored;
    if (arguments.file != "-" && arguments.log != "-" &&
        std::filesystem::equivalent(arguments.file, arguments.log, ignored))
        throw std::runtime_error("'" + arguments.file + "' would be replaced by the log");
}

int ask(const Arguments& arguments)
{
    if (!(arguments.timeout > 0 && arguments.timeout <= 86400))
        throw UsageError("--timeout: from more than 0 to 86400 seconds");
    const LanguageQuestion question = languageQuestion(arguments);
    const QString program = serverProgram(arguments.server);
    std::optional<TrafficLog> log;
    auto client = std::make_unique<Halvorin::LSP::LSPPythonClient>();
    refuseLogOverFile(arguments);
    if (!arguments.log.empty())
        log.emplace(arguments.log).follow(*client);
    const auto patience = std::chrono::milliseconds(static_cast<std::int64_t>(arguments.timeout * 1000));
    const QJsonValue answer =
        askLanguageServer(std::move(client), program.toStdWString(), question, patience);
    if (log)
        log->finish();
    StandardStreams::printLine(jsonLine(answer));
    return exitDone;
}

} // namespace

void addLspCommand(CLI::App& application, Action& action)
{
    CLI::App* command =
        application.add_subcommand("lsp", "Ask a language server one question about a Python file");
    const auto arguments = std::make_shared<Arguments>();
    command->add_option("FILE", arguments->file, "The file, or - for standard input")->required();
    command->add_option("--at", arguments->place, "The place that is asked about, counted from 1")
        ->type_name("LINE:COLUMN");
    for (std::size_t index = 0; index < questions.size(); ++index)
        command->add_flag(questions[index].option, arguments->asked[index], questions[index].explanation);
    command
        ->add_option("--server", arguments->server,
                     "The server's program; otherwise the option python.languageServer, then "
                     "pyright-langserver on PATH")
        ->type_name("PROGRAM");
    command
        ->add_option("--log", arguments->log,
                     "Keep what is sent and received in this file, a JSON object a line")
        ->type_name("FILE");
    command->add_option("--timeout", arguments->timeout, "How long to wait for the answer (60)")
        ->type_name("SECONDS");
    command->footer("The answer is a line of JSON, as the server gave it. The server is started for this "
                    "question and has\n"
                    "ended when it is answered. Behind \"lsp\" --log names the file; the level of the host's "
                    "messages is\n"
                    "set before it: halvorin --log info lsp ...");
    command->callback([arguments, &action] { action = [arguments] { return ask(*arguments); }; });
}
