#include "Python/pythonplatform.h"

#include "Python/pythonmachine.h"
#include "support/environmentvariable.h"
#include "support/fakeprogram.h"

using Halvorin::System::FilePath;
namespace fs = std::filesystem;

namespace {

class PythonPlatformOf : public testing::Test
{
protected:
    FilePath serverOf(const fs::path& interpreter) const
    {
        return PythonPlatform::languageServer(folder / interpreter);
    }

    TemporaryFolder folder;
    const EnvironmentVariable path{"PATH", (folder / "elsewhere").native()};
    const EnvironmentVariable home{"HOME", (folder / "home").native()};
    const EnvironmentVariable pyenv{"PYENV_ROOT", ""};
};

} // namespace

TEST_F(PythonPlatformOf, FindsTheLanguageServerBesideTheInterpreter)
{
    const FilePath beside = fakeProgram(folder, "bin/pyright-langserver", "");
    fakeProgram(folder, "elsewhere/pyright-langserver", "");
    EXPECT_EQ(serverOf("bin/python3.11"), beside);
}

TEST_F(PythonPlatformOf, FindsTheLanguageServerOnPathOtherwise)
{
    const FilePath elsewhere = fakeProgram(folder, "elsewhere/pyright-langserver", "");
    folder.write("bin/pyright-langserver", "no program");
    EXPECT_EQ(serverOf("bin/python3.11"), elsewhere);
}

TEST_F(PythonPlatformOf, FindsNoLanguageServerWhereThereIsNone)
{
    fs::create_directories(folder / "bin/pyright-langserver");
    folder.write("elsewhere/pyright-langserver", "no program");
    EXPECT_TRUE(serverOf("bin/python3.11").empty());
}

TEST_F(PythonPlatformOf, ListsInterpretersOfTheUsersFolders)
{
    const std::string answer = "echo 'Python 3.98.0'";
    const FilePath managed = fakeProgram(folder, "home/.pyenv/versions/x/bin/python3.98", answer);
    const auto find = [] {
        const auto found = PythonMachine::current().installations();
        const auto it = std::ranges::find(found, "3.98", &PythonInstallation::version);
        return it != found.end() ? it->path : FilePath();
    };
    EXPECT_EQ(find(), managed);
    const FilePath onPath = fakeProgram(folder, "elsewhere/python3.98", answer);
    EXPECT_EQ(find(), onPath);
}

TEST_F(PythonPlatformOf, FindsTheLibraryOfAnInterpreterBesideItsFolder)
{
    const fs::path interpreter = fakeProgram(folder, "root/bin/python3.11", "");
    fs::create_symlink(interpreter, folder / "link");
    EXPECT_TRUE(PythonPlatform::librariesOf(folder / "link", "3.11").empty());
    const FilePath plain = folder.write("root/lib/libpython3.11.so", "");
    folder.write("root/lib/libpython3.12.so.1.0", "");
    EXPECT_EQ(PythonPlatform::librariesOf(folder / "link", "3.11"), (std::vector{plain}));
    const FilePath numbered = folder.write("root/lib/libpython3.11.so.1.0", "");
    EXPECT_EQ(PythonPlatform::librariesOf(interpreter, "3.11"), (std::vector{numbered}));
    EXPECT_TRUE(PythonPlatform::librariesOf(folder / "missing", "3.11").empty());
}
