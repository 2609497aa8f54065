#ifndef SPOOL_H
#define SPOOL_H

#include "HalvCore/temporaryfile.h"

#include <cstddef>
#include <optional>
#include <string>

/// A file of our own in the system's temporary folder, removed in the end.
class SpoolFile
{
public:
    /// @throws std::runtime_error
    SpoolFile();

    const std::string& path() const { return m_file.path().native(); }

private:
    Halvorin::System::TemporaryFile m_file;
};

/// A path to read from: the argument, or for "-" that of a file with all of standard input.
class InputPath
{
public:
    /// @throws std::runtime_error when standard input cannot be read or has more than `limit` bytes.
    InputPath(const std::string& argument, std::size_t limit);

    const std::string& path() const { return m_spool ? m_spool->path() : m_argument; }

    /// How messages call it.
    std::string shownName() const { return m_spool ? "<standard input>" : m_argument; }

private:
    std::string m_argument;
    std::optional<SpoolFile> m_spool;
};

/// A path to write to: the argument, or for "-" that of a file that deliver() copies to standard output.
class OutputPath
{
public:
    explicit OutputPath(const std::string& argument);

    const std::string& path() const { return m_spool ? m_spool->path() : m_argument; }

    /// To call when all is written. @throws std::runtime_error
    void deliver() const;

private:
    std::string m_argument;
    std::optional<SpoolFile> m_spool;
};

#endif
