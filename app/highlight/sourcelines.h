#ifndef SOURCELINES_H
#define SOURCELINES_H

#include <QString>
#include <string>

/// A text in UTF-8, line by line. A line ends at "\n", and a "\r" right before is not part of it; a new line
/// at the end of the text starts no further line. A byte order mark at the start is passed over.
class SourceLines
{
public:
    /// @throws std::invalid_argument when the text is not UTF-8
    explicit SourceLines(std::string text);

    /// The next line without its end. False when there is none.
    bool next(QString& line);

private:
    std::string m_text;
    std::size_t m_position = 0;
};

#endif
