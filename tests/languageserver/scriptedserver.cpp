#include "languageserver/scriptedserver.h"

#include "languageserverpaths.h"

#include <QFile>
#include <QJsonDocument>
#include <QtTest/qtestsystem.h>

#include <algorithm>
#include <csignal>
#include <iterator>
#include <stdexcept>

namespace {

constexpr int patience = 60'000; // milliseconds
constexpr auto logName = "log";
constexpr auto scenarioName = "scenario.json";
constexpr auto programName = "server";

QJsonObject objectOf(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (!document.isObject())
        throw std::invalid_argument("not a scenario: " + error.errorString().toStdString());
    return document.object();
}

QString textOf(const std::filesystem::path& path)
{
    return QFile::decodeName(path.c_str());
}

/// A word of the shell that stands for just this text.
std::string quoted(std::string text)
{
    for (std::size_t place = 0; (place = text.find('\'', place)) != std::string::npos; place += 4)
        text.replace(place, 1, R"('\'')");
    return "'" + text + "'";
}

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

ScriptedServer::ScriptedServer(const QByteArray& scenario) : ScriptedServer(objectOf(scenario)) {}

ScriptedServer::ScriptedServer(const QJsonObject& scenario)
{
    QJsonObject logged = scenario;
    logged.insert(QStringLiteral("log"), textOf(m_folder / logName));
    const auto file = m_folder.write(scenarioName, QJsonDocument(logged).toJson().toStdString());
    const auto program = m_folder.write(
        programName, "#!/bin/sh\nexport SCRIPTED_SERVER=" + quoted(file) + "\nexec " + quoted(SYSTEM_PYTHON) +
                         " -E -S " + quoted(LANGUAGE_SERVER_FOLDER "/scriptedserver.py") + " \"$@\"\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
}

ScriptedServer::~ScriptedServer()
{
    for (const qint64 process : running())
        ::kill(static_cast<pid_t>(process), SIGKILL);
}

QString ScriptedServer::program() const
{
    return textOf(m_folder / programName);
}

std::vector<QJsonObject> ScriptedServer::log() const
{
    std::vector<QJsonObject> entries;
    const QByteArray content = contentOf(textOf(m_folder / logName));
    for (int start = 0, end; (end = content.indexOf('\n', start)) >= 0; start = end + 1)
        entries.push_back(objectOf(content.mid(start, end - start)));
    return entries;
}

std::vector<QJsonObject> ScriptedServer::events(const QString& event) const
{
    std::vector<QJsonObject> entries = log();
    std::erase_if(entries, [&](const QJsonObject& entry) { return entry[QStringLiteral("event")] != event; });
    return entries;
}

std::vector<QJsonObject> ScriptedServer::received() const
{
    std::vector<QJsonObject> messages;
    std::ranges::transform(
        events(QStringLiteral("received")), std::back_inserter(messages),
        [](const QJsonObject& entry) { return entry[QStringLiteral("message")].toObject(); });
    return messages;
}

std::vector<QJsonObject> ScriptedServer::received(const QString& method) const
{
    std::vector<QJsonObject> messages = received();
    std::erase_if(messages,
                  [&](const QJsonObject& message) { return message[QStringLiteral("method")] != method; });
    return messages;
}

QStringList ScriptedServer::receivedMethods() const
{
    QStringList methods;
    for (const QJsonObject& message : received())
        methods += message[QStringLiteral("method")].toString();
    return methods;
}

bool ScriptedServer::waitForEvent(const QString& event, std::size_t count) const
{
    return QTest::qWaitFor([&] { return events(event).size() >= count; }, patience);
}

bool ScriptedServer::waitForMessage(const QString& method, std::size_t count) const
{
    return QTest::qWaitFor([&] { return received(method).size() >= count; }, patience);
}

void ScriptedServer::letGoOn(const QString& name) const
{
    m_folder.write(QFile::encodeName(name).toStdString(), "");
}

std::vector<qint64> ScriptedServer::running() const
{
    // what they inherited tells our processes from others that were given an old number
    const QByteArray mark = "SCRIPTED_SERVER=" + QByteArray((m_folder / scenarioName).c_str()) + '\0';
    std::vector<qint64> processes;
    for (const QJsonObject& entry : log()) {
        const qint64 process = static_cast<qint64>(entry[QStringLiteral("pid")].toDouble());
        if (process > 0 && contentOf(QStringLiteral("/proc/%1/environ").arg(process)).contains(mark))
            processes.push_back(process);
    }
    return processes;
}
