#ifndef REPORTFILES_H
#define REPORTFILES_H

#include "spool.h"

#include <QFile>
#include <fstream>
#include <list>
#include <optional>
#include <string>
#include <string_view>

/// A long text that is written bit by bit and stands on the disk, not in memory.
class ReportText
{
public:
    ReportText();

    std::ostream& stream() { return m_stream; }

    /// All of it; no more can be written. @throws std::runtime_error when it could not all be kept
    std::string_view text();

private:
    SpoolFile m_spool;
    std::ofstream m_stream;
    QFile m_file;
    std::optional<std::string_view> m_text;
};

/// The files that a run leaves: all of them are written, or none.
class ReportFiles
{
public:
    /// "-" is standard output.
    void add(const std::string& path, std::string text);

    /// The text must be there until all is written.
    void add(const std::string& path, ReportText& text);

    /// @throws an exception that names the file
    void write() const;

private:
    struct File
    {
        std::string path;
        std::string_view text;
    };

    std::list<std::string> m_texts;
    std::list<File> m_files;
};

#endif
