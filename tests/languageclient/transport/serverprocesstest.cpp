#include "languageclient/transport/serverprocess.h"

#include "support/qtcore/processgone.h"
#include "support/temporaryfolder.h"

#include <QTest>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <string>

using namespace Halvorin::LSP;

namespace {

/// A program that is a shell script, with a folder for what it writes.
class Script
{
public:
    explicit Script(const std::string& lines)
    {
        std::ofstream(path()) << "#!/bin/sh\ncd \"" << m_folder.path().string() << "\"\n" << lines;
        std::filesystem::permissions(path(), std::filesystem::perms::owner_all);
    }

    QString program() const { return QString::fromStdString(path().string()); }

    /// The first line of a file that the script wrote; waits for it.
    std::string line(const std::string& name) const
    {
        std::string text;
        const bool come = QTest::qWaitFor(
            [&] {
                std::ifstream file(m_folder.path() / name);
                return static_cast<bool>(std::getline(file, text)) && file.good();
            },
            60'000); // far beyond need
        EXPECT_TRUE(come) << name;
        return text;
    }

private:
    std::filesystem::path path() const { return m_folder.path() / "server"; }

    TemporaryFolder m_folder;
};

} // namespace

TEST(ServerProcess, TellsTheServerThePortInItsOneArgument)
{
    const Script script("echo \"$# $*\" > arguments");
    ServerProcess process(nullptr);
    process.startServer(script.program(), 4711);
    EXPECT_EQ(script.line("arguments"), "1 --socket=4711");
}

TEST(ServerProcess, ReturnsAtOnceForAProgramThatDoesNotExist)
{
    ServerProcess process(nullptr);
    process.startServer(QStringLiteral("/nowhere/server"), 1);
    EXPECT_TRUE(QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }));
}

TEST(ServerProcess, TakesTheWholeGroupWithIt)
{
    const Script script("sleep 600 &\necho $! > child\nsleep 600");
    auto process = std::make_unique<ServerProcess>(nullptr);
    process->startServer(script.program(), 1);
    const int child = std::stoi(script.line("child"));
    const qint64 server = process->processId();
    process.reset();
    EXPECT_TRUE(processGone(server));
    EXPECT_TRUE(processGone(child));
}

TEST(ServerProcess, TakesAServerThatIgnoresPoliteSignals)
{
    const Script script("trap '' TERM INT HUP\necho ready > state\nwhile :; do sleep 1; done");
    auto process = std::make_unique<ServerProcess>(nullptr);
    process->startServer(script.program(), 1);
    EXPECT_EQ(script.line("state"), "ready");
    const qint64 server = process->processId();
    process.reset();
    EXPECT_TRUE(processGone(server));
}

TEST(ServerProcess, TakesWhatAServerLeavesBehind)
{
    const Script script("sleep 600 &\necho $! > child");
    ServerProcess process(nullptr);
    process.startServer(script.program(), 1);
    EXPECT_TRUE(processGone(std::stoi(script.line("child"))));
}

TEST(ServerProcess, LetsATalkativeServerGoOn)
{
    const Script script(
        "head -c 3000000 /dev/zero\nhead -c 3000000 /dev/zero >&2\necho done > state\nsleep 600");
    ServerProcess process(nullptr);
    process.startServer(script.program(), 1);
    EXPECT_EQ(script.line("state"), "done");
    EXPECT_EQ(process.readAllStandardOutput().size() + process.readAllStandardError().size(), 0);
}
