#ifndef SIMPLEBORDERS_H
#define SIMPLEBORDERS_H

#include "conversion/core/sourcetext.h"

#include <map>
#include <vector>

namespace Halvorin::Text {

/// The places of one border of simple tables, which counts wherever it ends a line, whatever that line begins
/// with.
struct BorderPlaces
{
    std::vector<int> ends;
    int lastClosing = -1; ///< the start of the last one that closes a table
};

/// Whether what ends at a place closes a table: behind it is a blank line, or nothing.
bool closesSimpleTable(const SourceText& text, int end);

/// The borders of a text, found once for it.
class SimpleBorders
{
public:
    const BorderPlaces& of(const SourceText& text, Span border);

private:
    void findRuns(const SourceText& text);
    void find(const SourceText& text, Span border, BorderPlaces& places) const;

    bool m_areRunsFound = false;
    std::vector<Span>
        m_runs; ///< of the characters of borders, before the ends of lines; by their characters from behind
    std::map<QString, BorderPlaces> m_places;
};

} // namespace Halvorin::Text

#endif
