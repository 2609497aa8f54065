#ifndef FINDINGTEXT_H
#define FINDINGTEXT_H

#include <string>

struct Finding;

/// A finding the way compilers print theirs: the place, the words and the path on one line, then the source
/// line, and below it a caret under the first blamed character. Of a long line only the part around the
/// place is shown. Control characters come out as "?", so that no definition writes to the terminal.
std::string findingAsText(const std::string& file, const Finding& finding);

/// A finding as one JSON object and a line end.
std::string findingAsJson(const std::string& file, const Finding& finding);

#endif
