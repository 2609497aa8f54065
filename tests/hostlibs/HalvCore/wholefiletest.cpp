#include "HalvCore/wholefile.h"

#include "support/temporaryfolder.h"

#include <unistd.h>

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
