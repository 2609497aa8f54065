#include "Python/interpreterfolders.h"

#include "HostSupport/fileversion.h"
#include "Python/pythonversion.h"
#include "support/fakeprogram.h"

using Halvorin::System::FilePath;
namespace fs = std::filesystem;

namespace {

class InterpreterFolders : public testing::Test
{
protected:
    /// An interpreter that says this version.
    void add(const fs::path& name, const std::string& version) const
    {
        fakeProgram(folder, name, "echo 'Python " + version + "'");
    }

    /// What is found, a line each: version and path below the folder.
    std::vector<std::string> found(const std::vector<fs::path>& folders)
    {
        std::vector<fs::path> paths;
        for (const fs::path& each : folders)
            paths.push_back(folder / each);
        std::vector<std::string> lines;
        for (const PythonInstallation& each : listInterpreters(paths, [this](const FilePath& file) {
                 asked.push_back(file.toStdPath().lexically_relative(folder.path()).native());
                 return versionText(sp_GetFileVersion(file));
             }))
            lines.push_back(each.version + " " +
                            each.path.toStdPath().lexically_relative(folder.path()).native());
        return lines;
    }

    TemporaryFolder folder;
    std::vector<std::string> asked;
};

using Lines = std::vector<std::string>;
using Folders = std::vector<fs::path>;

} // namespace

TEST_F(InterpreterFolders, AreTheSystemsOwnThenThoseOfPathThenThoseOfVersionManagers)
{
    const fs::path home = folder / "home";
    for (const char* name : {".pyenv/versions/3.11.7", ".pyenv/versions/3.10.13", ".local/share/uv/python/a",
                             ".local/share/mise/installs/python/b", ".asdf/installs/python/c"})
        fs::create_directories(home / name);
    EXPECT_EQ(
        interpreterFolders({{"/usr/bin", "/usr/local/bin"}, "/a/bin:/b/bin", home, {}}),
        (Folders{"/usr/bin", "/usr/local/bin", "/a/bin", "/b/bin", home / ".pyenv/versions/3.10.13/bin",
                 home / ".pyenv/versions/3.11.7/bin", home / ".local/share/uv/python/a/bin",
                 home / ".local/share/mise/installs/python/b/bin", home / ".asdf/installs/python/c/bin"}));
}

TEST_F(InterpreterFolders, AreThoseOfAManagerThatTheUserMoved)
{
    fs::create_directories(folder / "pyenv/versions/3.12.1");
    EXPECT_EQ(interpreterFolders({{}, "", "", folder / "pyenv"}),
              (Folders{folder / "pyenv/versions/3.12.1/bin"}));
}

TEST_F(InterpreterFolders, AreNeverRelativeOnes)
{
    EXPECT_EQ(interpreterFolders({{}, ":.:bin:/a::../b:", "home", "pyenv"}), (Folders{"/a"}));
    EXPECT_EQ(searchPathFolders(""), Folders{});
}

TEST_F(InterpreterFolders, AreNotThoseOfStandIns)
{
    EXPECT_EQ(interpreterFolders({{}, "/home/a/.pyenv/shims:/b", "", ""}), (Folders{"/b"}));
}

TEST_F(InterpreterFolders, ListInterpretersInTheirOrderAndByVersion)
{
    add("a/python3.12", "3.12.1");
    add("a/python3.9", "3.9.0");
    add("b/python3.11", "3.11.0");
    EXPECT_EQ(found({"b", "a"}), (Lines{"3.11 b/python3.11", "3.9 a/python3.9", "3.12 a/python3.12"}));
}

TEST_F(InterpreterFolders, ListOnlyProgramsThatAreNamedLikeInterpreters)
{
    for (const char* name : {"python3", "python", "python3.", "python3.11-config", "python3.x", "python3.11d",
                             "xpython3.11", "python2.7", "python3.99999999999999999999"})
        add(name, "3.11.0");
    folder.write("python3.10", "no program");
    fs::create_directory(folder / "python3.12");
    fs::create_symlink("nowhere", folder / "python3.13");
    EXPECT_EQ(found({""}), Lines{});
}

TEST_F(InterpreterFolders, ListTheFirstOfEachVersionAndAskNoOtherOne)
{
    add("a/python3.11", "3.11.0");
    add("b/python3.11", "3.11.9");
    EXPECT_EQ(found({"missing", "a", "b"}), (Lines{"3.11 a/python3.11"}));
    EXPECT_EQ(asked, (Lines{"a/python3.11"}));
}

TEST_F(InterpreterFolders, ListTheNextOfAVersionWhoseFirstDoesNotAnswer)
{
    fakeProgram(folder, "a/python3.11", "echo 'nonsense'");
    fakeProgram(folder, "b/python3.11", "exec yes | tr -d '\\n'");
    add("c/python3.11", "3.11.9");
    EXPECT_EQ(found({"a", "b", "c"}), (Lines{"3.11 c/python3.11"}));
}

TEST_F(InterpreterFolders, AskAFileOnceUnderAllItsNames)
{
    fakeProgram(folder, "a/python3.11", "echo 'nonsense'");
    fs::create_directory_symlink("a", folder / "b");
    EXPECT_EQ(found({"a", "b"}), Lines{});
    EXPECT_EQ(asked, (Lines{"a/python3.11"}));
}

TEST_F(InterpreterFolders, BelieveTheAnswerAndNotTheName)
{
    add("a/python3.11", "3.12.0");
    add("b/python3.12", "3.12.1");
    add("c/python3.11", "3.11.1");
    EXPECT_EQ(found({"a", "b", "c"}), (Lines{"3.12 a/python3.11", "3.11 c/python3.11"}));
}
