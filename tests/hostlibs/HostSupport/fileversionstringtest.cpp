#include "HostSupport/fileversion.h"

#include "support/temporaryfolder.h"
#include "testpaths.h"

#include <array>
#include <elf.h>
#include <fstream>
#include <sys/stat.h>

namespace fs = std::filesystem;

namespace {

std::string notedLibrary()
{
    std::ifstream stream(NOTED_LIBRARY, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// Where the header of the notes' segment stands in the file.
std::size_t notesHeader(const std::string& bytes)
{
    const auto* header = reinterpret_cast<const Elf64_Ehdr*>(bytes.data());
    for (std::size_t i = 0; i < header->e_phnum; ++i) {
        const std::size_t offset = header->e_phoff + i * sizeof(Elf64_Phdr);
        Elf64_Phdr segment;
        bytes.copy(reinterpret_cast<char*>(&segment), sizeof segment, offset);
        if (segment.p_type == PT_NOTE && segment.p_align == 4)
            return offset;
    }
    throw std::runtime_error("the library has no notes");
}

class VersionString : public testing::Test
{
protected:
    std::optional<std::string> in(const std::string& bytes, const std::string& name = "PythonVersion") const
    {
        return sp_GetFileVersionString(folder.write("file", bytes), name);
    }

    TemporaryFolder folder;
};

} // namespace

TEST_F(VersionString, IsReadFromALibraryByItsName)
{
    EXPECT_EQ(sp_GetFileVersionString(NOTED_LIBRARY, "PythonVersion"), "3.12");
    EXPECT_EQ(sp_GetFileVersionString(NOTED_LIBRARY, "Other"), "a longer text, of 31 characters");
    EXPECT_EQ(sp_GetFileVersionString(NOTED_LIBRARY, "Empty"), "");
    for (const char* name : {"", "Python", "PythonVersion2", "GNU"})
        EXPECT_EQ(sp_GetFileVersionString(NOTED_LIBRARY, name), std::nullopt) << name;
}

TEST_F(VersionString, IsNoneInWhatIsNoLibrary)
{
    for (const std::string bytes : {"", "text",
                                    "\x7f"
                                    "ELF",
                                    "!<arch>\n", "PythonVersion"})
        EXPECT_EQ(in(bytes), std::nullopt);
    EXPECT_EQ(sp_GetFileVersionString(folder / "missing", "PythonVersion"), std::nullopt);
    EXPECT_EQ(sp_GetFileVersionString(folder.path(), "PythonVersion"), std::nullopt);
    EXPECT_EQ(sp_GetFileVersionString("/dev/zero", "PythonVersion"), std::nullopt);
}

TEST_F(VersionString, IsNotWaitedForInAPipe)
{
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(sp_GetFileVersionString(pipe, "PythonVersion"), std::nullopt);
}

TEST_F(VersionString, IsNoneInALibraryThatIsCutBeforeIt)
{
    const std::string bytes = notedLibrary();
    const std::size_t text = bytes.find("PythonVersion");
    ASSERT_NE(text, std::string::npos);
    for (std::size_t size = 0; size < text; size += 7)
        EXPECT_EQ(in(bytes.substr(0, size)), std::nullopt) << size;
}

TEST_F(VersionString, IsReadOrNoneInALibraryWithAnyByteBroken)
{
    const std::string bytes = notedLibrary();
    const std::size_t text = bytes.find("PythonVersion");
    const std::size_t headers = notesHeader(bytes) + sizeof(Elf64_Phdr);
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < headers; ++i)
        places.push_back(i);
    for (std::size_t i = text - 12; i < text + 24; ++i)
        places.push_back(i);
    for (const std::size_t place : places) {
        for (const char value : {'\0', '\x7f', '\xff'}) {
            std::string broken = bytes;
            broken[place] = value;
            const auto found = in(broken);
            EXPECT_LE(found.value_or("").size(), std::size_t(1) << 16) << place;
        }
    }
}

TEST_F(VersionString, IsNoneWhereTheNotesAreSaidToBeLargerThanTheFileOrThanNotesAre)
{
    std::string bytes = notedLibrary();
    const std::size_t header = notesHeader(bytes);
    for (const Elf64_Xword size :
         {~Elf64_Xword(0), Elf64_Xword(1) << 40, Elf64_Xword(bytes.size()) + 1, (Elf64_Xword(1) << 16) + 1}) {
        bytes.replace(header + offsetof(Elf64_Phdr, p_filesz), sizeof size,
                      reinterpret_cast<const char*>(&size), sizeof size);
        EXPECT_EQ(in(bytes), std::nullopt) << size;
    }
    // the file is as large as that now, and it makes no difference
    const fs::path file = folder.write("file", bytes);
    fs::resize_file(file, std::uintmax_t(1) << 32);
    EXPECT_EQ(sp_GetFileVersionString(file, "PythonVersion"), std::nullopt);
}
