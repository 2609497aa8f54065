#ifndef COLOUREDRUNS_H
#define COLOUREDRUNS_H

#include "grammar/token.h"
#include "highlight/colourscheme.h"

#include <vector>

/// A stretch of a line that looks the same throughout.
struct ColouredRun
{
    int start = 0;
    int end = 0;
    const ColourRule* rule = nullptr; ///< null for plain text

    friend bool operator==(const ColouredRun&, const ColouredRun&) = default;
};

/// The whole of a line of `length` columns as runs: what no token covers is plain, and where tokens overlap,
/// the later one is seen. The tokens stand by their start.
std::vector<ColouredRun> colouredRuns(const std::vector<Halvorin::TextMate::Token>& tokens, int length,
                                      ColourScheme& scheme);

#endif
