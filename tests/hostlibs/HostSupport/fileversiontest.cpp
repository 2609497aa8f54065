#include "HostSupport/fileversion.h"

#include "HostSupport/firstline.h"
#include "support/fakeprogram.h"

#include <chrono>
#include <csignal>
#include <fstream>
#include <sys/stat.h>

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace {

std::optional<FileVersion> versionThatIsAnswered(const std::string& text)
{
    const TemporaryFolder folder;
    return sp_GetFileVersion(fakeProgram(folder, "python3", text));
}

bool isRunning(const std::string& process)
{
    std::ifstream stream("/proc/" + process + "/stat");
    std::string number;
    std::string name;
    std::string state;
    return stream >> number >> name >> state && state != "Z";
}

} // namespace

TEST(FileVersion, IsWhatAnInterpreterAnswers)
{
    EXPECT_EQ(versionThatIsAnswered("echo 'Python 3.12.4'"), (FileVersion{3, 12}));
    EXPECT_EQ(versionThatIsAnswered("echo 'Python 3.9.18 (custom build)'; echo more"), (FileVersion{3, 9}));
    EXPECT_EQ(versionThatIsAnswered("printf 'Python 3.14'"), (FileVersion{3, 14}));
}

TEST(FileVersion, IsAskedForByTheUsualOption)
{
    EXPECT_EQ(versionThatIsAnswered(R"([ "$#,$1" = 1,--version ] && echo 'Python 3.12.4')"),
              (FileVersion{3, 12}));
}

TEST(FileVersion, IsNoneForAnAnswerThatIsNoVersion)
{
    for (const char* text :
         {"echo nonsense", "echo", "exit 3", "echo 'Python'", "echo 'Python 3'", "echo 'Python 3.'",
          "echo 'Python .3'", "echo 'Python -3.1'", "echo 'Python 3.-1'", "echo 'Python 99999999999.1'",
          "echo 'python 3.12.4'", "echo; echo 'Python 3.12.4'", "echo 'Python 3.12.4' >&2"})
        EXPECT_EQ(versionThatIsAnswered(text), std::nullopt) << text;
}

TEST(FileVersion, IsNoneForAnAnswerOfMegabytes)
{
    EXPECT_EQ(versionThatIsAnswered("exec yes | tr -d '\\n'"), std::nullopt);
    EXPECT_EQ(versionThatIsAnswered("echo 'Python 3.12.4'; exec yes"), (FileVersion{3, 12}));
}

TEST(FileVersion, IsNoneForAnInterpreterThatHangs)
{
    EXPECT_EQ(versionThatIsAnswered("exec sleep 1000"), std::nullopt);
    EXPECT_EQ(versionThatIsAnswered("echo 'Python 3.12.4'; exec sleep 1000"), (FileVersion{3, 12}));
}

TEST(FileVersion, IsNoneForWhatIsNoProgram)
{
    const TemporaryFolder folder;
    EXPECT_EQ(sp_GetFileVersion(folder / "missing"), std::nullopt);
    EXPECT_EQ(sp_GetFileVersion(folder.path()), std::nullopt);
    EXPECT_EQ(sp_GetFileVersion(folder.write("text", "Python 3.12")), std::nullopt);
    const fs::path broken = folder.write("broken", "\x7f"
                                                   "ELF");
    fs::permissions(broken, fs::perms::owner_all);
    EXPECT_EQ(sp_GetFileVersion(broken), std::nullopt);
}

TEST(FileVersion, IsAskedForOnceUntilTheFileChanges)
{
    const TemporaryFolder folder;
    const std::string count = "echo x >> '" + (folder / "count").native() + "'; ";
    const fs::path file = fakeProgram(folder, "python3", count + "echo 'Python 3.11.1'");
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(sp_GetFileVersion(file), (FileVersion{3, 11}));
    EXPECT_EQ(folder.read("count"), "x\n");

    const fs::path other = fakeProgram(folder, "other", count + "echo 'Python 3.12.1'");
    fs::rename(other, file);
    EXPECT_EQ(sp_GetFileVersion(file), (FileVersion{3, 12}));
    EXPECT_EQ(folder.read("count"), "x\nx\n");
}

TEST(FileVersion, ThatIsNoneIsAskedForOnceToo)
{
    const TemporaryFolder folder;
    const fs::path file =
        fakeProgram(folder, "python3", "echo x >> '" + (folder / "count").native() + "'; echo nonsense");
    EXPECT_EQ(sp_GetFileVersion(file), std::nullopt);
    EXPECT_EQ(sp_GetFileVersion(file), std::nullopt);
    EXPECT_EQ(folder.read("count"), "x\n");
}

TEST(FirstLine, IsWhatThereIsOfItWhenTheTimeIsUp)
{
    const TemporaryFolder folder;
    EXPECT_EQ(
        HostSupport::firstLineOf(fakeProgram(folder, "program", "printf begun; exec sleep 1000"), {}, 3s),
        "begun");
}

TEST(FirstLine, LeavesNothingRunningOfAProgramThatHangs)
{
    const TemporaryFolder folder;
    const fs::path file = fakeProgram(folder, "program", "sleep 1000 & echo $! $$; wait");
    std::istringstream line(HostSupport::firstLineOf(file, {}, 60s));
    std::string background;
    std::string program;
    ASSERT_TRUE(line >> background >> program);
    EXPECT_FALSE(isRunning(program));
    while (isRunning(background)) // killed already: somebody else is to reap it
        ::usleep(1000);
}

TEST(FirstLine, IsNotWaitedForWhenAProgramLeavesItsGroup)
{
    const TemporaryFolder folder;
    const fs::path file =
        fakeProgram(folder, "program",
                    "exec perl -e '$| = 1; setpgrp(0, getpgrp(getppid())); print qq(x\\n); sleep 1000'");
    EXPECT_EQ(HostSupport::firstLineOf(file, {}, 60s), "x");
}

TEST(FirstLine, IsCutWhereItIsTooLong)
{
    const TemporaryFolder folder;
    const std::string line =
        HostSupport::firstLineOf(fakeProgram(folder, "program", "yes | tr -d '\\n'"), {}, 60s);
    EXPECT_EQ(line.size(), HostSupport::longestFirstLine);
}

TEST(FirstLine, IsThatOfAProgramThatReadsAndComplains)
{
    const TemporaryFolder folder;
    const fs::path file = fakeProgram(folder, "program", R"(cat; echo complaint >&2; echo "$1,$2")");
    EXPECT_EQ(HostSupport::firstLineOf(file, {"a b", "c"}, 60s), "a b,c");
}

TEST(FirstLine, IsEmptyWhenNothingCanBeStarted)
{
    EXPECT_EQ(HostSupport::firstLineOf("/nonexistent/program", {}, 60s), "");
}
