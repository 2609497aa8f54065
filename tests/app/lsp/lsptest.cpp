// "halvorin lsp" with a server that does what each test wants.

#include "app/shelltester.h"
#include "languageserver/scriptedserver.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUrl>
#include <filesystem>
#include <fstream>

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class Lsp : public ShellTester
{
protected:
    Lsp() { folder.write("a.py", "import math\nmath.sqrt(2)\n"); }

    /// Asks about a.py.
    ProcessResult ask(const ScriptedServer& server, const std::string& question,
                      std::vector<std::string> more = {}) const
    {
        std::vector<std::string> arguments{
            "lsp", "a.py", "--at", "2:7", question, "--server", server.program().toStdString()};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return run(arguments);
    }

    /// That the server does as the scenario says, and the command fails with the text.
    void expectFailure(const QByteArray& scenario, const std::string& text,
                       const std::vector<std::string>& more = {}) const
    {
        const ScriptedServer server(scenario);
        const ProcessResult result = ask(server, "--hover", more);
        EXPECT_EQ(result.exitCode, 1) << scenario.toStdString();
        EXPECT_EQ(result.output, "");
        EXPECT_THAT(result.error, HasSubstr("halvorin: " + text + "\n"));
        EXPECT_TRUE(server.running().empty()) << scenario.toStdString();
    }
};

QJsonObject params(const QJsonObject& message)
{
    return message.value(QLatin1String("params")).toObject();
}

} // namespace

TEST_F(Lsp, PrintsAHoverAsALineOfJson)
{
    const ScriptedServer server;
    const ProcessResult result = ask(server, "--hover");
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(result.output, "{\"contents\":{\"kind\":\"plaintext\",\"value\":\"a hover text\"}}\n");
    EXPECT_EQ(result.error, "");
}

TEST_F(Lsp, PrintsCompletions)
{
    const ScriptedServer server;
    const ProcessResult result = ask(server, "--complete");
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_THAT(result.output, HasSubstr("\"label\":\"alpha\""));
}

TEST_F(Lsp, PrintsASignature)
{
    const ScriptedServer server;
    const ProcessResult result = ask(server, "--signature");
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_THAT(result.output, HasSubstr("\"label\":\"alpha(first, second)\""));
}

TEST_F(Lsp, PrintsDiagnosticsOfTheFileWithoutAPlace)
{
    const QString file = QUrl::fromLocalFile(QString::fromStdString((folder / "a.py").native())).toString();
    const ScriptedServer server(
        QByteArray(R"({"on": {"textDocument/didOpen": [{"notify": "textDocument/publishDiagnostics",
        "params": {"uri": "file:///other.py", "diagnostics": [{"message": "elsewhere"}]}},
        {"notify": "textDocument/publishDiagnostics", "params": {"uri": ")") +
        file.toUtf8() + R"(", "version": 1, "diagnostics": [{"message": "odd"}]}}]}})");
    const ProcessResult result =
        run({"lsp", "a.py", "--diagnostics", "--server", server.program().toStdString()});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(result.output, "[{\"message\":\"odd\"}]\n");
}

TEST_F(Lsp, PrintsNullWhenThereIsNothingToSay)
{
    const ScriptedServer server(R"({"on": {"textDocument/hover": [{"respond": {"result": null}}]}})");
    const ProcessResult result = ask(server, "--hover");
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(result.output, "null\n");
}

TEST_F(Lsp, OpensTheDocumentAndAsksAboutThePlace)
{
    folder.write("a.py", "s = '\xF0\x9F\x90\x8D'; t\n");
    const ScriptedServer server;
    run({"lsp", "a.py", "--at", "1:10", "--hover", "--server", server.program().toStdString()});
    const QJsonObject document = params(server.received(QStringLiteral("textDocument/didOpen")).at(0))
                                     .value(QLatin1String("textDocument"))
                                     .toObject();
    EXPECT_EQ(QUrl(document.value(QLatin1String("uri")).toString()).toLocalFile().toStdString(),
              (folder / "a.py").native());
    EXPECT_EQ(document.value(QLatin1String("languageId")), QLatin1String("python"));
    EXPECT_EQ(document.value(QLatin1String("version")), QJsonValue(1));
    EXPECT_EQ(document.value(QLatin1String("text")).toString(),
              QString::fromUtf8("s = '\xF0\x9F\x90\x8D'; t\n"));
    const QJsonObject position = params(server.received(QStringLiteral("textDocument/hover")).at(0))
                                     .value(QLatin1String("position"))
                                     .toObject();
    EXPECT_EQ(position.value(QLatin1String("line")), QJsonValue(0));
    EXPECT_EQ(position.value(QLatin1String("character")), QJsonValue(10)); // the snake is two units
}

TEST_F(Lsp, TakesTheTextOfStandardInput)
{
    const ScriptedServer server;
    ProcessOptions options;
    options.input = "x = 1\n";
    const ProcessResult result =
        run({"lsp", "-", "--at", "1:1", "--hover", "--server", server.program().toStdString()}, options);
    EXPECT_EQ(result.exitCode, 0) << result.error;
    const QJsonObject document = params(server.received(QStringLiteral("textDocument/didOpen")).at(0))
                                     .value(QLatin1String("textDocument"))
                                     .toObject();
    EXPECT_EQ(document.value(QLatin1String("text")), QLatin1String("x = 1\n"));
    EXPECT_EQ(QUrl(document.value(QLatin1String("uri")).toString()).toLocalFile().toStdString(),
              (folder / "stdin.py").native());
}

TEST_F(Lsp, SendsTheServerHome)
{
    const ScriptedServer server;
    ask(server, "--hover");
    EXPECT_EQ(server.receivedMethods(),
              (QStringList{QStringLiteral("initialize"), QStringLiteral("initialized"),
                           QStringLiteral("textDocument/didOpen"), QStringLiteral("textDocument/hover"),
                           QStringLiteral("shutdown"), QStringLiteral("exit")}));
    EXPECT_TRUE(server.running().empty());
}

TEST_F(Lsp, FailsWithTheServersError)
{
    expectFailure(
        R"({"on": {"textDocument/hover": [{"respond": {"error": {"code": 1, "message": "no idea"}}}]}})",
        "the language server answered: no idea");
}

TEST_F(Lsp, FailsWhenTheAnswerIsOfAnotherType)
{
    expectFailure(R"({"on": {"textDocument/hover": [{"respond": {"result": 5}}]}})",
                  "the language server answered: invalid conversion");
}

TEST_F(Lsp, FailsWhenTheServerRefuses)
{
    expectFailure(R"({"on": {"initialize": [{"respond": {"error": {"code": 1, "message": "not today"}}}]}})",
                  "the language server refused: not today");
    expectFailure(R"({"on": {"initialize": [{"respond": {"result": null}}]}})",
                  "the language server refused: it does not say what it can do");
}

TEST_F(Lsp, PassesOverAnErrorThatNobodyAskedFor)
{
    const ScriptedServer server(
        R"({"steps": [{"send": {"id": 99, "error": {"code": 1, "message": "stray"}}}]})");
    const ProcessResult result = ask(server, "--hover");
    EXPECT_EQ(result.exitCode, 0) << result.error;
}

TEST_F(Lsp, FailsWhenTheServerEnds)
{
    expectFailure(R"({"start": [{"exit": 3}]})", "the language server is gone");
    expectFailure(R"({"on": {"textDocument/hover": [{"kill": "SIGKILL"}]}})", "the language server is gone");
}

TEST_F(Lsp, FailsWhenTheServerClosesTheConnection)
{
    expectFailure(R"({"on": {"textDocument/hover": [{"close": "end"}, {"hang": true}]}})",
                  "the language server is gone");
}

TEST_F(Lsp, FailsWhenTheServerIsSilentForTooLong)
{
    expectFailure(R"({"start": [{"hang": true}]})", "no answer of the language server within 300 ms",
                  {"--timeout", "0.3"});
    expectFailure(R"({"on": {"textDocument/hover": [], "shutdown": []}})",
                  "no answer of the language server within 1000 ms", {"--timeout", "1"});
}

TEST_F(Lsp, FailsWithoutAServer)
{
    const ProcessResult result = run({"lsp", "a.py", "--at", "1:1", "--hover", "--server", "no-such-server"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error,
              "halvorin: no-such-server: there is no such language server (--server names one)\n");
}

TEST_F(Lsp, FailsAtOnceWithAServerThatCannotBeRun)
{
    const std::filesystem::path program = folder.write("server", "#!/no/such/interpreter\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const ProcessResult result = run({"lsp", "a.py", "--at", "1:1", "--hover", "--server", "./server"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.error, StartsWith("halvorin: the language server cannot be run: "));
}

TEST_F(Lsp, TakesAServerByAPathFromWhereItStands)
{
    const ScriptedServer server;
    std::filesystem::create_symlink(server.program().toStdString(), folder / "server");
    const ProcessResult result = run({"lsp", "a.py", "--at", "1:1", "--hover", "--server", "./server"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
}

TEST_F(Lsp, RefusesATextThatIsNotUtf8)
{
    folder.write("a.py", "# \xFF\n");
    const ProcessResult result = run({"lsp", "a.py", "--at", "1:1", "--hover"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "halvorin: a.py: the text is not UTF-8\n");
}

TEST_F(Lsp, PassesOverAByteOrderMark)
{
    folder.write("a.py", "\xEF\xBB\xBFx = 1\n");
    const ScriptedServer server;
    const ProcessResult result =
        run({"lsp", "a.py", "--at", "1:1", "--hover", "--server", server.program().toStdString()});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    const QJsonObject document = params(server.received(QStringLiteral("textDocument/didOpen")).at(0))
                                     .value(QLatin1String("textDocument"))
                                     .toObject();
    EXPECT_EQ(document.value(QLatin1String("text")), QLatin1String("x = 1\n"));
}

TEST_F(Lsp, TakesTheServerOfTheOption)
{
    const ScriptedServer server;
    const ProcessResult result = run({"--option", "python.languageServer=" + server.program().toStdString(),
                                      "lsp", "a.py", "--at", "1:1", "--hover"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_FALSE(server.receivedMethods().isEmpty());
}

TEST_F(Lsp, FailsForAPlaceThatTheFileDoesNotHave)
{
    const ScriptedServer server;
    const ProcessResult result =
        run({"lsp", "a.py", "--at", "9:1", "--hover", "--server", server.program().toStdString()});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "halvorin: a.py: there is no line 9\n");
    EXPECT_TRUE(server.log().empty());
}

TEST_F(Lsp, FailsForAFileThatIsNotThere)
{
    const ProcessResult result = run({"lsp", "none.py", "--at", "1:1", "--hover"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.error, HasSubstr("none.py"));
}

TEST_F(Lsp, IsUsedWronglyWithoutOneQuestionAndAPlace)
{
    const std::vector<std::vector<std::string>> wrong{
        {"a.py", "--at", "1:1"},
        {"a.py", "--at", "1:1", "--hover", "--complete"},
        {"a.py", "--hover"},
        {"a.py", "--at", "1", "--hover"},
        {"a.py", "--at", "0:1", "--hover"},
        {"a.py", "--at", "1:1", "--hover", "--timeout", "0"},
        {"a.py", "--at", "1:1", "--hover", "--timeout", "nan"},
        {"--at", "1:1", "--hover"},
    };
    for (std::vector<std::string> arguments : wrong) {
        arguments.insert(arguments.begin(), "lsp");
        const ProcessResult result = run(arguments);
        EXPECT_EQ(result.exitCode, 2) << testing::PrintToString(arguments);
        EXPECT_THAT(result.error, StartsWith("halvorin: "));
    }
}

TEST_F(Lsp, KeepsTheTrafficInALog)
{
    const ScriptedServer server;
    const ProcessResult result = ask(server, "--hover", {"--log", "traffic"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    std::vector<std::string> passed;
    std::ifstream file(folder / "traffic");
    for (std::string line; std::getline(file, line);) {
        const QJsonObject entry = QJsonDocument::fromJson(QByteArray::fromStdString(line)).object();
        EXPECT_TRUE(QDateTime::fromString(entry.value(QLatin1String("time")).toString(), Qt::ISODateWithMs)
                        .isValid());
        const QJsonObject message = entry.value(QLatin1String("message")).toObject();
        passed.push_back((entry.value(QLatin1String("from")).toString() + QLatin1Char(' ') +
                          message.value(QLatin1String("method")).toString())
                             .toStdString());
    }
    EXPECT_EQ(passed, (std::vector<std::string>{"client initialize", "server ", "client initialized",
                                                "client textDocument/didOpen", "client textDocument/hover",
                                                "server ", "client shutdown", "server ", "client exit"}));
}

TEST_F(Lsp, WritesTheTrafficToStandardOutputBeforeTheAnswer)
{
    const ScriptedServer server;
    const ProcessResult result = ask(server, "--hover", {"--log", "-"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_THAT(
        result.output,
        StartsWith(
            "{\"from\":\"client\",\"message\":{\"id\":1,\"jsonrpc\":\"2.0\",\"method\":\"initialize\""));
    EXPECT_THAT(result.output,
                testing::EndsWith("\n{\"contents\":{\"kind\":\"plaintext\",\"value\":\"a hover text\"}}\n"));
}

TEST_F(Lsp, FailsForALogThatCannotBeWritten)
{
    const ScriptedServer server;
    const ProcessResult result = ask(server, "--hover", {"--log", "no/such/folder/log"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.error, HasSubstr("no/such/folder/log"));
    EXPECT_TRUE(server.log().empty());
}

TEST_F(Lsp, DoesNotWriteTheLogOverTheFileThatIsAskedAbout)
{
    const ScriptedServer server;
    const std::string before = folder.read("a.py");
    const ProcessResult result = ask(server, "--hover", {"--log", "./a.py"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_EQ(result.error, "halvorin: 'a.py' would be replaced by the log\n");
    EXPECT_EQ(folder.read("a.py"), before);
    EXPECT_TRUE(server.log().empty());
}

TEST_F(Lsp, FailsForALogOnAFullDevice)
{
    const ScriptedServer server;
    const ProcessResult result = ask(server, "--hover", {"--log", "/dev/full"});
    EXPECT_EQ(result.exitCode, 1);
    EXPECT_THAT(result.error, HasSubstr("/dev/full"));
    EXPECT_TRUE(server.running().empty());
}

TEST_F(Lsp, ExplainsItself)
{
    const ProcessResult result = run({"lsp", "--help"});
    EXPECT_EQ(result.exitCode, 0);
    for (const char* option : {"--at LINE:COLUMN", "--complete", "--hover", "--signature", "--diagnostics",
                               "--server PROGRAM", "--log FILE", "--timeout SECONDS"})
        EXPECT_THAT(result.output, HasSubstr(option));
}
