#include "HalvCore/wholefile.h"

#include "support/process.h"
#include "support/temporaryfolder.h"

#include <csignal>

using namespace Halvorin::System;
namespace fs = std::filesystem;

namespace {

std::ptrdiff_t filesIn(const fs::path& folder)
{
    return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
}

} // namespace

TEST(WholeFile, IsWrittenAndReadBack)
{
    const TemporaryFolder folder;
    const std::string bytes("a\0\xff\n", 4);
    writeWholeFile(folder / "file", bytes).value();
    EXPECT_EQ(readWholeFile(folder / "file", 4)->toStdStringView(), bytes);
    EXPECT_EQ(filesIn(folder.path()), 1);
}

TEST(WholeFile, ReplacesAFileAndKeepsItsMode)
{
    const TemporaryFolder folder;
    const fs::path file = folder.write("file", "old and longer");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    writeWholeFile(file, "new").value();
    EXPECT_EQ(folder.read("file"), "new");
    EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(WholeFile, FollowsALinkAndLeavesItALink)
{
    const TemporaryFolder folder;
    folder.write("target", "old");
    fs::create_symlink("target", folder / "link");
    writeWholeFile(folder / "link", "new").value();
    EXPECT_TRUE(fs::is_symlink(folder / "link"));
    EXPECT_EQ(folder.read("target"), "new");
}

TEST(WholeFile, FollowsLinksToAFileThatIsNotThereYet)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "other");
    fs::create_symlink("other/second", folder / "first");
    fs::create_symlink("target", folder / "other/second");
    writeWholeFile(folder / "first", "new").value();
    EXPECT_TRUE(fs::is_symlink(folder / "first"));
    EXPECT_TRUE(fs::is_symlink(folder / "other/second"));
    EXPECT_EQ(folder.read("other/target"), "new");

    fs::create_symlink("circle", folder / "circle");
    EXPECT_EQ(writeWholeFile(folder / "circle", "x").error().code(), ErrorCode(FileError::cannotOpen));
}

TEST(WholeFile, IsNeverReadableByMoreThanTheFileThatItReplaces)
{
    const TemporaryFolder folder;
    const fs::path file = folder.write("file", "old");
    fs::permissions(file, fs::perms::owner_read | fs::perms::owner_write);
    // The signal of the limit ends the child while the content is being written.
    EXPECT_EQ(runInChild([&file] {
                  std::signal(SIGXFSZ, SIG_DFL);
                  limitFileSize(4);
                  static_cast<void>(writeWholeFile(file, "secrets"));
                  return 0;
              }),
              -SIGXFSZ);
    ASSERT_EQ(filesIn(folder.path()), 2);
    for (const auto& entry : fs::directory_iterator(folder.path()))
        EXPECT_EQ(entry.status().permissions(), fs::perms::owner_read | fs::perms::owner_write)
            << entry.path();
}

TEST(WholeFile, NamesTheFolderThatTakesNoNewFile)
{
    const TemporaryFolder folder;
    const fs::path file = folder.write("file", "old");
    fs::permissions(file, fs::perms::all);
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec | fs::perms::others_exec);
    const std::string expected = "the file cannot be opened: '" + file.native() +
                                 "' (no new file can be made in the folder '" + folder.path().native() +
                                 "': Permission denied)";
    EXPECT_EQ(runInChild([&] {
                  dropRights();
                  const auto written = writeWholeFile(file, "new");
                  return !written && written.error().message() == expected ? 0 : 1;
              }),
              0);
    EXPECT_EQ(folder.read("file"), "old");
    fs::permissions(folder.path(), fs::perms::owner_all);
}

TEST(WholeFile, IsRefusedWhereTheFileMayNotBeWritten)
{
    const TemporaryFolder folder;
    const fs::path file = folder.write("file", "old");
    fs::permissions(file, fs::perms::owner_read);
    fs::permissions(folder.path(), fs::perms::all);
    EXPECT_EQ(runInChild([&] {
                  dropRights();
                  const auto written = writeWholeFile(file, "new");
                  return !written && written.error().code() == ErrorCode(FileError::accessDenied) ? 0 : 1;
              }),
              0);
    EXPECT_EQ(folder.read("file"), "old");
}

TEST(WholeFiles, ReplaceNoneWhenOneCannotBeWritten)
{
    const TemporaryFolder folder;
    folder.write("first", "old");
    fs::create_directory(folder / "second");
    EXPECT_FALSE(writeWholeFiles({{folder / "first", "new"}, {folder / "second", "new"}}).hasValue());
    EXPECT_EQ(folder.read("first"), "old");
    EXPECT_EQ(filesIn(folder.path()), 2);

    writeWholeFiles({{folder / "first", "new"}, {folder / "third", "new too"}}).value();
    EXPECT_EQ(folder.read("first"), "new");
    EXPECT_EQ(folder.read("third"), "new too");
}

TEST(WholeFiles, ArePutBackWhenALaterOneFails)
{
    const TemporaryFolder folder;
    const fs::path old = folder.write("old", "old");
    // What is written in place comes last, and the full device then fails.
    const auto written = writeWholeFiles({{"/dev/full", "x"}, {old, "new"}, {folder / "fresh", "new"}});
    ASSERT_FALSE(written.hasValue());
    EXPECT_EQ(written.error().message(), "the file cannot be written: '/dev/full' (No space left on device)");
    EXPECT_EQ(folder.read("old"), "old");
    EXPECT_EQ(filesIn(folder.path()), 1);
}

TEST(WholeFiles, LeaveNoOldContentBehind)
{
    const TemporaryFolder folder;
    writeWholeFiles({{folder.write("first", "old"), "new"}, {folder.write("second", "old"), "new"}}).value();
    EXPECT_EQ(folder.read("first"), "new");
    EXPECT_EQ(folder.read("second"), "new");
    EXPECT_EQ(filesIn(folder.path()), 2);
}

TEST(WholeFile, IsWrittenUnderTheLongestNameAndUnderOneOfAnyBytes)
{
    const TemporaryFolder folder;
    writeWholeFile(folder / std::string(255, 'n'), "x").value();
    writeWholeFile(folder / "\xff\xe9", "x").value();
    EXPECT_EQ(filesIn(folder.path()), 2);
}

TEST(WholeFile, IsWrittenByARelativeName)
{
    const TemporaryFolder folder;
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    const auto written = writeWholeFile("file", "x");
    fs::current_path(before);
    EXPECT_TRUE(written.hasValue());
    EXPECT_EQ(folder.read("file"), "x");
}

TEST(WholeFile, FailsWithoutLeavingAnythingBehind)
{
    const TemporaryFolder folder;
    fs::create_directory(folder / "folder");
    EXPECT_EQ(writeWholeFile(folder / "folder", "x").error().code(), ErrorCode(FileError::isDirectory));
    EXPECT_FALSE(writeWholeFile(folder / "missing/file", "x").hasValue());
    EXPECT_FALSE(writeWholeFile("", "x").hasValue());
    EXPECT_EQ(filesIn(folder.path()), 1);
}

TEST(WholeFile, WritesIntoADeviceAndReportsOneThatIsFull)
{
    EXPECT_TRUE(writeWholeFile("/dev/null", "x").hasValue());
    const auto full = writeWholeFile("/dev/full", "x");
    ASSERT_FALSE(full.hasValue());
    EXPECT_EQ(full.error().code(), ErrorCode(FileError::writeFailed));
    EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST(WholeFile, SaysWhyItCannotBeRead)
{
    const TemporaryFolder folder;
    folder.write("file", "12345");
    EXPECT_EQ(readWholeFile(folder / "file", 4).error().code(), ErrorCode(FileError::tooLarge));
    EXPECT_EQ(readWholeFile("/dev/zero", 1000).error().code(), ErrorCode(FileError::tooLarge));
    EXPECT_EQ(readWholeFile(folder / "missing", 4).error().code(), ErrorCode(FileError::notFound));
    EXPECT_EQ(readWholeFile(folder.path(), 4).error().code(), ErrorCode(FileError::isDirectory));
}
