#include "HalvCore/temporaryfile.h"

#include "support/temporaryfolder.h"

#include <cerrno>

using Halvorin::System::TemporaryFile;
namespace fs = std::filesystem;

TEST(TemporaryFile, IsThereUntilItEnds)
{
    const TemporaryFolder folder;
    {
        TemporaryFile file(folder / "a-", ".tmp", 0600);
        ASSERT_TRUE(file.isOpen());
        EXPECT_TRUE(fs::is_empty(file.path()));
        TemporaryFile moved(std::move(file));
        EXPECT_TRUE(moved.close());
        EXPECT_TRUE(fs::exists(moved.path()));
    }
    EXPECT_TRUE(fs::is_empty(folder.path()));
}

TEST(TemporaryFile, IsLeftAloneOnceItHasAnotherName)
{
    const TemporaryFolder folder;
    {
        TemporaryFile file(folder / "a-", ".tmp", 0600);
        fs::rename(file.path(), folder / "other");
        file.release();
    }
    EXPECT_TRUE(fs::exists(folder / "other"));
}

TEST(TemporaryFile, SaysWhyItCannotBeMade)
{
    const TemporaryFolder folder;
    const TemporaryFile file(folder / "missing/a-", ".tmp", 0600);
    const int error = errno;
    EXPECT_FALSE(file.isOpen());
    EXPECT_EQ(error, ENOENT);
}

TEST(TemporaryFile, IsRemovedWithAllOthersAtOnceButNotOnceItWasReleased)
{
    const TemporaryFolder folder;
    const TemporaryFile first(folder / "a-", ".tmp", 0600);
    const TemporaryFile second(folder / "b-", ".tmp", 0600);
    TemporaryFile released(folder / "c-", ".tmp", 0600);
    const fs::path kept = released.path();
    released.release();
    TemporaryFile::removeAll();
    EXPECT_FALSE(fs::exists(first.path()));
    EXPECT_FALSE(fs::exists(second.path()));
    EXPECT_TRUE(fs::exists(kept));
}
