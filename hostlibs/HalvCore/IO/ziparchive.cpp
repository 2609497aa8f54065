#include "HalvCore/IO/ziparchive.h"

#include <array>
#include <ctime>
#include <memory>
#include <zip.h>

namespace Halvorin::System::IO {

namespace {

struct Discard
{
    void operator()(zip_t* archive) const { zip_discard(archive); }
    void operator()(zip_file_t* file) const { zip_fclose(file); }
    void operator()(zip_source_t* source) const { zip_source_free(source); }
};

using Archive = std::unique_ptr<zip_t, Discard>;
using ItemFile = std::unique_ptr<zip_file_t, Discard>;
using Source = std::unique_ptr<zip_source_t, Discard>;

class ZipFailure
{
public:
    ZipFailure() { zip_error_init(&m_error); }
    ZipFailure(const ZipFailure&) = delete;
    ZipFailure& operator=(const ZipFailure&) = delete;
    ~ZipFailure() { zip_error_fini(&m_error); }

    zip_error_t* get() { return &m_error; }
    std::string words() { return zip_error_strerror(&m_error); }

private:
    zip_error_t m_error{};
};

ErrorCode2 damagedItem(const std::string& name, const char* words)
{
    return ErrorCode2(FileError::damaged, "item '" + name + "' (" + words + ")");
}

ErrorCode2 tooManyItems()
{
    return ErrorCode2(FileError::tooLarge, "the number of items in the archive");
}

ErrorCode2 tooMuchContent()
{
    return ErrorCode2(FileError::tooLarge, "the content of the archive");
}

/// The number of items that the wide form of the end record claims. The zip library makes room for that
/// many before it looks whether they are there.
std::uint64_t claimedItems(std::string_view archive)
{
    static constexpr std::string_view signature("PK\x06\x06", 4);
    static constexpr std::size_t countOffset = 32;
    std::uint64_t largest = 0;
    for (std::size_t at = archive.find(signature); at != std::string_view::npos;
         at = archive.find(signature, at + 1)) {
        if (archive.size() - at < countOffset + 8)
            break;
        std::uint64_t count = 0;
        for (std::size_t i = 8; i-- > 0;)
            count = (count << 8) | static_cast<unsigned char>(archive[at + countOffset + i]);
        largest = std::max(largest, count);
    }
    return largest;
}

Archive openArchive(Source source, int flags, ZipFailure& failure)
{
    Archive archive(source ? zip_open_from_source(source.get(), flags, failure.get()) : nullptr);
    if (archive)
        static_cast<void>(source.release()); // the archive owns it now
    return archive;
}

Expected<std::string, ErrorCode2> readItem(zip_t& archive, zip_uint64_t index, const std::string& name,
                                           std::size_t limit)
{
    const ItemFile file(zip_fopen_index(&archive, index, 0));
    if (!file)
        return damagedItem(name, zip_strerror(&archive));
    std::string content;
    std::array<char, 65536> block{};
    while (true) {
        const zip_int64_t count = zip_fread(file.get(), block.data(), block.size());
        if (count < 0)
            return damagedItem(name, zip_file_strerror(file.get()));
        if (count == 0)
            return content;
        if (content.size() + static_cast<std::size_t>(count) > limit)
            return tooMuchContent();
        content.append(block.data(), static_cast<std::size_t>(count));
    }
}

/// The earliest time that an archive can say, wherever the machine stands.
std::time_t fixedTime()
{
    std::tm time{};
    time.tm_year = 80;
    time.tm_mday = 1;
    time.tm_isdst = -1;
    return std::mktime(&time);
}

bool addItem(zip_t& archive, const ZipItem& item, std::time_t time)
{
    Source source(zip_source_buffer(&archive, item.content.data(), item.content.size(), 0));
    if (!source)
        return false;
    const zip_int64_t index = zip_file_add(&archive, item.name.c_str(), source.get(), ZIP_FL_ENC_UTF_8);
    if (index < 0)
        return false;
    static_cast<void>(source.release());
    const auto place = static_cast<zip_uint64_t>(index);
    const zip_int32_t method = item.compressed ? ZIP_CM_DEFLATE : ZIP_CM_STORE;
    return zip_set_file_compression(&archive, place, method, 0) == 0 &&
           zip_file_set_mtime(&archive, place, time, 0) == 0;
}

Expected<ByteArray2, ErrorCode2> bytesOf(zip_source_t& source)
{
    zip_stat_t status;
    zip_stat_init(&status);
    if (zip_source_stat(&source, &status) < 0 || zip_source_open(&source) < 0)
        return ErrorCode2(FileError::writeFailed, zip_error_strerror(zip_source_error(&source)));
    std::string bytes(status.size, '\0');
    const zip_int64_t count = zip_source_read(&source, bytes.data(), bytes.size());
    zip_source_close(&source);
    if (count != static_cast<zip_int64_t>(bytes.size()))
        return ErrorCode2(FileError::writeFailed, zip_error_strerror(zip_source_error(&source)));
    return ByteArray2(std::move(bytes));
}

} // namespace

Expected<std::vector<ZipItem>, ErrorCode2> readZipArchive(std::string_view bytes, ZipLimits limits)
{
    if (claimedItems(bytes) > limits.items)
        return tooManyItems();
    ZipFailure failure;
    const Archive archive = openArchive(
        Source(zip_source_buffer_create(bytes.data(), bytes.size(), 0, failure.get())), ZIP_RDONLY, failure);
    if (!archive)
        return ErrorCode2(FileError::damaged, failure.words());
    const auto count = static_cast<zip_uint64_t>(zip_get_num_entries(archive.get(), 0));
    if (count > limits.items)
        return tooManyItems();

    std::vector<ZipItem> items;
    std::size_t left = limits.contentBytes;
    for (zip_uint64_t index = 0; index < count; ++index) {
        const char* name = zip_get_name(archive.get(), index, ZIP_FL_ENC_RAW);
        if (!name)
            return ErrorCode2(FileError::damaged, zip_strerror(archive.get()));
        auto content = readItem(*archive, index, name, left);
        if (!content)
            return content.error();
        left -= content->size();
        zip_stat_t status;
        const bool stored = zip_stat_index(archive.get(), index, 0, &status) == 0 &&
                            (status.valid & ZIP_STAT_COMP_METHOD) && status.comp_method == ZIP_CM_STORE;
        items.push_back({name, std::move(content).value(), !stored});
    }
    return items;
}

Expected<void, ErrorCode2> checkZipLimits(const std::vector<ZipItem>& items, ZipLimits limits)
{
    if (items.size() > limits.items)
        return tooManyItems();
    std::size_t left = limits.contentBytes;
    for (const ZipItem& item : items) {
        if (item.content.size() > left)
            return tooMuchContent();
        left -= item.content.size();
    }
    return {};
}

Expected<ByteArray2, ErrorCode2> writeZipArchive(const std::vector<ZipItem>& items)
{
    ZipFailure failure;
    const Source result(zip_source_buffer_create(nullptr, 0, 0, failure.get()));
    if (!result)
        return ErrorCode2(FileError::writeFailed, failure.words());
    zip_source_keep(result.get()); // one owner for the archive, one to read what it wrote
    Archive archive = openArchive(Source(result.get()), ZIP_TRUNCATE, failure);
    if (!archive)
        return ErrorCode2(FileError::writeFailed, failure.words());

    const std::time_t time = fixedTime();
    for (const ZipItem& item : items) {
        if (!addItem(*archive, item, time))
            return ErrorCode2(FileError::writeFailed, zip_strerror(archive.get()));
    }
    if (zip_close(archive.get()) < 0)
        return ErrorCode2(FileError::writeFailed, zip_strerror(archive.get()));
    static_cast<void>(archive.release()); // closing frees it
    return bytesOf(*result);
}

} // namespace Halvorin::System::IO
