#include "HostSupport/folders.h"
#include "HostSupport/utfstring.h"
#include "HostSupport/ystring.h"

TEST(YString, IsBuiltFromNarrowAndWideText)
{
    EXPECT_STREQ(YString("a").tocs(), "a");
    EXPECT_STREQ(YString(L"\u00e9").tocs(), "\xc3\xa9");
    EXPECT_STREQ(YString(static_cast<const char*>(nullptr)).tocs(), "");
}

TEST(UTFString, GivesNarrowAndWideText)
{
    EXPECT_EQ(UTFString("\xc3\xa9").getWide(), L"\u00e9");
    EXPECT_EQ(UTFString(L"\u00e9").get(), "\xc3\xa9");
    EXPECT_EQ(UTFString("").getWide(), L"");
}

TEST(UTFString, BringsAnyBytesBack)
{
    const std::string bytes = "caf\xe9";
    EXPECT_EQ(UTFString(UTFString(bytes.c_str()).getWide().c_str()).get(), bytes);
}

TEST(Folders, NameTheFolderOfTheProgram)
{
    EXPECT_TRUE(std::filesystem::exists(sp_GetExeDir().toStdPath() / "test-hostsupport"));
}
