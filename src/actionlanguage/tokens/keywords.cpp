#include "actionlanguage/tokens/keywords.h"

#include <algorithm>

// The look-up is a binary search: the table must stay in alphabetical order.
static_assert(std::ranges::is_sorted(keywordTable));

std::optional<KeywordId> keywordOf(std::string_view identifier)
{
    const auto found = std::ranges::lower_bound(keywordTable, identifier);
    if (found == keywordTable.end() || *found != identifier)
        return std::nullopt;
    return static_cast<KeywordId>(found - keywordTable.begin());
}
