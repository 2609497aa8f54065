#ifndef ESCAPES_H
#define ESCAPES_H

#include <string>
#include <string_view>

/// Text inside of XML, or of a label that Graphviz reads like HTML, also in an attribute.
/// @param lineEnd what stands for a line end; one as it is would become a space
std::string xmlEscaped(std::string_view text, std::string_view lineEnd);

/// How a language of labels writes what has a meaning of its own there.
struct LabelEscapes
{
    std::string_view special;   ///< the characters that have one
    std::string_view codeStart; ///< comes before the number of a character, ";" behind it
    std::string_view lineEnd;
    std::string_view nothing; ///< in place of an empty label
};

std::string labelEscaped(std::string_view text, const LabelEscapes& escapes);

#endif
