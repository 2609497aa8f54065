#include "reportfiles.h"

#include "HalvCore/filepath.h"
#include "HalvCore/wholefile.h"
#include "standardstreams.h"

#include <stdexcept>
#include <vector>

ReportText::ReportText() : m_stream(m_spool.path(), std::ios::binary) {}

std::string_view ReportText::text()
{
    if (m_text)
        return *m_text;
    m_stream.close();
    m_file.setFileName(QString::fromStdString(m_spool.path()));
    if (m_stream.fail() || !m_file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot keep a report in a temporary file");
    m_text = std::string_view();
    if (m_file.size() == 0)
        return *m_text;
    const uchar* const bytes = m_file.map(0, m_file.size());
    if (bytes == nullptr)
        throw std::runtime_error("cannot read a temporary file back");
    m_text = std::string_view(reinterpret_cast<const char*>(bytes), static_cast<std::size_t>(m_file.size()));
    return *m_text;
}

void ReportFiles::add(const std::string& path, std::string text)
{
    m_files.push_back({path, m_texts.emplace_back(std::move(text))});
}

void ReportFiles::add(const std::string& path, ReportText& text)
{
    m_files.push_back({path, text.text()});
}

void ReportFiles::write() const
{
    std::vector<Halvorin::System::WholeFile> files;
    for (const File& file : m_files)
        if (file.path != "-")
            files.push_back({Halvorin::System::FilePath(file.path).toStdPath(), file.text});
    Halvorin::System::writeWholeFiles(files).value();
    for (const File& file : m_files)
        if (file.path == "-")
            StandardStreams::print(file.text);
}
