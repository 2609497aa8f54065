#include "HostSupport/fileversion.h"

#include <fcntl.h>
#include <gelf.h>
#include <libelf.h>
#include <memory>
#include <sys/stat.h>
#include <unistd.h>

using Halvorin::System::FilePath;

namespace {

/// Notes are small. More than this is a damaged file, and is not read into memory.
constexpr GElf_Xword largestNotes = 1 << 16;

constexpr GElf_Word versionNoteType = 1;

/// An open regular file, or -1. Whatever else has the name must not be waited for.
class RegularFile
{
public:
    explicit RegularFile(const FilePath& path)
        : m_descriptor(::open(path.toStdPath().c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK))
    {
        struct stat status
        {};
        if (m_descriptor >= 0 && (::fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode))) {
            ::close(m_descriptor);
            m_descriptor = -1;
        }
    }
    RegularFile(const RegularFile&) = delete;
    RegularFile& operator=(const RegularFile&) = delete;
    ~RegularFile()
    {
        if (m_descriptor >= 0)
            ::close(m_descriptor);
    }

    int descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

std::string_view textAt(const Elf_Data& data, std::size_t offset, std::size_t size)
{
    const std::string_view text(static_cast<const char*>(data.d_buf) + offset, size);
    return text.substr(0, text.find('\0'));
}

std::optional<std::string> findNote(Elf_Data& notes, std::string_view name)
{
    GElf_Nhdr note{};
    std::size_t nameOffset = 0;
    std::size_t textOffset = 0;
    std::size_t offset = 0;
    while ((offset = gelf_getnote(&notes, offset, &note, &nameOffset, &textOffset)) > 0) {
        if (note.n_type == versionNoteType && textAt(notes, nameOffset, note.n_namesz) == name)
            return std::string(textAt(notes, textOffset, note.n_descsz));
    }
    return std::nullopt;
}

std::optional<std::string> findNote(Elf& elf, std::string_view name)
{
    std::size_t count = 0;
    if (elf_getphdrnum(&elf, &count) != 0)
        return std::nullopt;
    for (std::size_t i = 0; i < count; ++i) {
        GElf_Phdr segment{};
        if (!gelf_getphdr(&elf, static_cast<int>(i), &segment))
            return std::nullopt;
        if (segment.p_type != PT_NOTE || segment.p_filesz > largestNotes)
            continue;
        const Elf_Type type = segment.p_align == 8 ? ELF_T_NHDR8 : ELF_T_NHDR;
        Elf_Data* notes =
            elf_getdata_rawchunk(&elf, static_cast<std::int64_t>(segment.p_offset), segment.p_filesz, type);
        if (!notes || !notes->d_buf)
            continue;
        if (auto text = findNote(*notes, name))
            return text;
    }
    return std::nullopt;
}

} // namespace

std::optional<std::string> sp_GetFileVersionString(const FilePath& file, const std::string& name)
{
    const RegularFile open(file);
    if (open.descriptor() < 0 || elf_version(EV_CURRENT) == EV_NONE)
        return std::nullopt;
    // read, not mapped: a file that shrinks meanwhile then only reads short
    const std::unique_ptr<Elf, decltype(&elf_end)> elf(elf_begin(open.descriptor(), ELF_C_READ, nullptr),
                                                       &elf_end);
    return elf && elf_kind(elf.get()) == ELF_K_ELF ? findNote(*elf, name) : std::nullopt;
}
