#ifndef ESCAPEPLACES_H
#define ESCAPEPLACES_H

#include "actionlanguage/tokens/diagnostic.h"

#include <string_view>
#include <vector>

/// Where the unrecognised escapes of a text stand. The language reports one by what is left of its literal,
/// counted from the literal's start; this turns that into the place of the backslash and of the character
/// behind it.
class EscapePlaces
{
public:
    explicit EscapePlaces(std::string_view source);

    /// Of a position that the language gave for the same source; the position itself when it is in no
    /// literal.
    SourceSpan placeOf(std::uint64_t reported) const;

private:
    std::string_view m_source;
    std::vector<SourceSpan> m_literals; // with their quotes
};

#endif
