#include "HostSupport/options.h"

#include "HalvCore/application.h"
#include "HalvCore/exception.h"
#include "HostSupport/optionstore.h"
#include "HostSupport/registrations.h"
#include "support/temporaryfolder.h"

#include <unistd.h>

using HostSupport::OptionStore;
using HostSupport::Registry;

namespace {

/// Options kept in a file of the test's own.
class Options : public testing::Test
{
protected:
    Options() { store.useFile(file()); }
    ~Options() override { store.forgetThisRun(); }

    std::filesystem::path file() const { return folder / "options.ini"; }

    TemporaryFolder folder;
    OptionStore& store = OptionStore::instance();
};

} // namespace

TEST_F(Options, AreNotFoundUntilTheyAreWritten)
{
    bool found = true;
    EXPECT_EQ(sp_GetStringOption("test.none", &found), YString());
    EXPECT_FALSE(found);
    EXPECT_TRUE(sp_WriteOption("test.none", "text"));
    EXPECT_STREQ(sp_GetStringOption("test.none", &found).tocs(), "text");
    EXPECT_TRUE(found);
}

TEST_F(Options, AreReadAsTheirType)
{
    sp_WriteOption("test.on", true);
    sp_WriteOption("test.count", "-12");
    sp_WriteOption("test.size", "1e-09");
    EXPECT_TRUE(sp_GetBoolOption("test.on"));
    EXPECT_EQ(sp_GetIntOption("test.count"), -12);
    EXPECT_EQ(sp_GetDoubleOption("test.size"), 1e-9);
    EXPECT_STREQ(sp_GetStringOption("test.on").tocs(), "true");
}

TEST_F(Options, OfAnotherTypeAreNotFound)
{
    sp_WriteOption("test.text", "12 apples");
    bool found = true;
    EXPECT_EQ(sp_GetIntOption("test.text", &found), 0);
    EXPECT_FALSE(found);
    EXPECT_FALSE(sp_GetBoolOption("test.text", &found));
    EXPECT_FALSE(found);
    EXPECT_EQ(sp_GetDoubleOption("test.text", &found), 0.0);
    EXPECT_FALSE(found);
}

TEST_F(Options, PersistInTheFile)
{
    const char* text = "C:\\a, \"b\"; [c]=\xc3\xa9\n%";
    sp_WriteOption("test.text", text);
    store.useFile(folder / "other.ini");
    EXPECT_STREQ(sp_GetStringOption("test.text").tocs(), "");
    store.useFile(file());
    EXPECT_STREQ(sp_GetStringOption("test.text").tocs(), text);
}

TEST_F(Options, AreReadFromAFileThatSomebodyWrote)
{
    folder.write("options.ini", "[General]\npython.userPath=/opt/a, b\npython.showHover=false\n");
    store.useFile(file());
    EXPECT_STREQ(sp_GetStringOption("python.userPath").tocs(), "/opt/a, b");
    bool found = false;
    EXPECT_FALSE(sp_GetBoolOption("python.showHover", &found));
    EXPECT_TRUE(found);
}

TEST_F(Options, OfThisRunStandAboveTheFileAndAreNotStored)
{
    sp_WriteOption("test.text", "stored");
    store.setForThisRun("test.text", "for this run");
    EXPECT_STREQ(sp_GetStringOption("test.text").tocs(), "for this run");
    store.forgetThisRun();
    EXPECT_STREQ(sp_GetStringOption("test.text").tocs(), "stored");
}

TEST_F(Options, ThatAreWrittenReplaceThoseOfThisRun)
{
    store.setForThisRun("test.text", "for this run");
    sp_WriteOption("test.text", "written");
    EXPECT_STREQ(sp_GetStringOption("test.text").tocs(), "written");
}

TEST_F(Options, HoldForThisRunWhenTheFileCannotBeWritten)
{
    store.useFile(folder / "options.ini");
    std::filesystem::create_directory(folder / "options.ini");
    std::string lines;
    auto& logger = Halvorin::System::Application::instance().logger();
    logger.setOutput([&lines](std::string_view line) { lines += line; });
    EXPECT_FALSE(sp_WriteOption("test.text", "kept"));
    logger.setOutput({});
    EXPECT_THAT(lines, testing::StartsWith("warning: settings: cannot write options to "));
    EXPECT_STREQ(sp_GetStringOption("test.text").tocs(), "kept");
}

TEST_F(Options, CannotBeAFolderOrAnythingElse)
{
    EXPECT_THROW(store.useFile(folder.path()), Halvorin::System::Exception);
    folder.write("bad.ini", "[section without an end\na=b\n");
    EXPECT_THROW(store.useFile(folder / "bad.ini"), Halvorin::System::Exception);
    EXPECT_THROW(store.useFile("/dev/null"), Halvorin::System::Exception);
    folder.write("text.ini", "hello world\n");
    EXPECT_THROW(store.useFile(folder / "text.ini"), Halvorin::System::Exception);
    folder.write("document.ini", "{\"a\": 1}\n");
    EXPECT_THROW(store.useFile(folder / "document.ini"), Halvorin::System::Exception);
    folder.write("program.ini", std::string_view("\x7f"
                                                 "ELF\0=\n",
                                                 7));
    EXPECT_THROW(store.useFile(folder / "program.ini"), Halvorin::System::Exception);
}

TEST_F(Options, StandInTheUsersConfigurationFolder)
{
    EXPECT_THAT(OptionStore::defaultFile().toString().toLegacyUtf8(),
                testing::EndsWith("/halvorin/halvorin.ini"));
}

TEST_F(Options, HaveTheirRegisteredDefault)
{
    bool mirror = false;
    const MakeOption option(__FILE__, __LINE__, &mirror, "test.default", true, 0);
    EXPECT_TRUE(mirror);
    bool found = false;
    EXPECT_TRUE(sp_GetBoolOption("test.default", &found));
    EXPECT_TRUE(found);
    EXPECT_FALSE(store.stored("test.default").has_value());
}

TEST_F(Options, AreMirroredByAVariableOfTheirType)
{
    int count = 0;
    double size = 0;
    YString text;
    const MakeOption countOption(__FILE__, __LINE__, &count, "test.count", 3, 0);
    const MakeOption sizeOption(__FILE__, __LINE__, &size, "test.size", 0.5, 0);
    const MakeOption textOption(__FILE__, __LINE__, &text, "test.text", "default", 0);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(size, 0.5);
    EXPECT_STREQ(text.tocs(), "default");

    sp_WriteOption("test.count", "4");
    sp_WriteOption("test.size", "no number");
    sp_WriteOption("test.text", "written");
    EXPECT_EQ(count, 4);
    EXPECT_EQ(size, 0.5);
    EXPECT_STREQ(text.tocs(), "written");
}

TEST_F(Options, ReachTheirMirrorsOnlyFromTheHostsStartOn)
{
    store.setForThisRun("test.early", "stored");
    store.setForThisRun("test.late", "stored");
    YString early;
    YString late;
    const MakeOption earlyOption(__FILE__, __LINE__, &early, "test.early", "default", 0);
    EXPECT_STREQ(early.tocs(), "default");
    Registry::instance().makeMirrorsLive();
    EXPECT_STREQ(early.tocs(), "stored");
    const MakeOption lateOption(__FILE__, __LINE__, &late, "test.late", "default", 0);
    EXPECT_STREQ(late.tocs(), "stored");
}

TEST_F(Options, RunTheirActionsWhenTheyChange)
{
    int runs = 0;
    {
        const OptionAction action("test.watched", [&runs] { ++runs; });
        sp_WriteOption("test.watched", "a");
        EXPECT_EQ(runs, 1);
        sp_WriteOption("test.watched", "a");
        EXPECT_EQ(runs, 1);
        sp_WriteOption("test.other", "b");
        EXPECT_EQ(runs, 1);
    }
    sp_WriteOption("test.watched", "c");
    EXPECT_EQ(runs, 1);
}

TEST_F(Options, SurviveAnActionThatTakesAnotherOneBack)
{
    int runs = 0;
    std::unique_ptr<OptionAction> second;
    const OptionAction first("test.watched", [&second] { second.reset(); });
    second = std::make_unique<OptionAction>("test.watched", [&runs] { ++runs; });
    sp_WriteOption("test.watched", "a");
    EXPECT_EQ(runs, 0);
}
