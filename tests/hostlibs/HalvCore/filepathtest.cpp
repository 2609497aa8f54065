#include "HalvCore/filepath.h"

#include "HalvCore/filepath2.h"
#include "support/temporaryfolder.h"

using namespace Halvorin::System;

TEST(FilePath, IsBuiltFromEveryKindOfText)
{
    const FilePath expected("d/\xc3\xa9");
    EXPECT_EQ(FilePath(std::string("d/\xc3\xa9")), expected);
    EXPECT_EQ(FilePath(String("d/\xc3\xa9")), expected);
    EXPECT_EQ(FilePath(L"d/\u00e9"), expected);
    EXPECT_EQ(FilePath(std::wstring(L"d/\u00e9")), expected);
    EXPECT_EQ(FilePath(std::filesystem::path("d/\xc3\xa9")), expected);
    const std::wstring wide = L"d/\u00e9";
    EXPECT_EQ(FilePath2(wide.data(), wide.size()).toStdPath(), expected.toStdPath());
}

TEST(FilePath, ShowsItsTextNarrowAndWide)
{
    const FilePath path("d/\xc3\xa9");
    EXPECT_EQ(path.toString(), String("d/\xc3\xa9"));
    EXPECT_EQ(path.toStdWString(), L"d/\u00e9");
    EXPECT_STREQ(path.c_str(), L"d/\u00e9");
    EXPECT_EQ(path.size(), 3U);
}

TEST(FilePath, AppendsAComponentAndFindsItsParent)
{
    FilePath path("a");
    path /= "b";
    EXPECT_EQ(path, FilePath("a/b"));
    EXPECT_EQ(path.size(), 3U);
    EXPECT_EQ(path.parentPath(), FilePath("a"));
}

TEST(FilePath, IsOrdered)
{
    EXPECT_LT(FilePath("a"), FilePath("b"));
    EXPECT_EQ(FilePath("a") <=> FilePath("a"), std::strong_ordering::equal);
}

TEST(FilePath, CarriesANameOfAnyBytesToTheFileSystemUnchanged)
{
    const TemporaryFolder folder;
    const std::string name = "caf\xe9 \xff\xed\xb2\x80.json";
    folder.write(name, "content");

    const FilePath narrow((folder / name).native());
    EXPECT_TRUE(std::filesystem::exists(narrow.toStdPath()));
    const FilePath throughWide(narrow.toStdWString());
    EXPECT_TRUE(std::filesystem::exists(throughWide.toStdPath()));
    EXPECT_EQ(throughWide, narrow);
    const std::wstring wide = narrow.toStdWString();
    EXPECT_TRUE(std::filesystem::exists(FilePath2(wide.data(), wide.size()).toStdPath()));
}
