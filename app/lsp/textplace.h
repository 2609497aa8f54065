#ifndef TEXTPLACE_H
#define TEXTPLACE_H

#include <QString>
#include <string>

/// A place in a text as people and compilers count: lines and characters, both from 1.
struct TextPlace
{
    int line = 1;
    int column = 1;
};

/// Reads "LINE:COLUMN". @throws std::invalid_argument that says what is wrong
TextPlace parseTextPlace(const std::string& text);

/// A place as the Language Server Protocol counts: lines and UTF-16 units, both from 0.
struct ProtocolPlace
{
    int line = 0;
    int character = 0;
};

/// The place in the text; the column behind the last character of a line is one, too.
/// @throws std::invalid_argument when the text has no such line or column
ProtocolPlace protocolPlace(const QString& text, TextPlace place);

#endif
