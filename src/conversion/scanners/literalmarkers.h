#ifndef LITERALMARKERS_H
#define LITERALMARKERS_H

#include "conversion/core/sourcetext.h"

#include <map>
#include <vector>

namespace Halvorin::Text {

/// Blank lines behind the line of a marker, and what follows them.
struct LiteralGap
{
    LiteralGap(const SourceText& text, Line markerLine);

    int count = 0; ///< of blank lines
    Line beforeLast;
    Line last;
    Line behind; ///< the line that follows, which may be a blank one that the text ends with
    bool isBlankToTheEnd;
};

/// Whether one of the blank lines may begin a block when it is deep enough.
bool mayBeginBlock(const LiteralGap& gap, int number);

/// The markers of a text ("::" at the end of a line) that announce a literal block, found once for the text.
class LiteralMarkers
{
public:
    /// The last one that announces a block for paragraphs of an indent, -1 for none.
    int last(const SourceText& text, Span indent);

private:
    /// The marker announces a block for every indent that the span begins with.
    struct Announcement
    {
        Span indents;
        int marker;
    };

    void findAll(const SourceText& text);
    void announce(Span indents, int marker);

    bool m_areFound = false;
    std::vector<Announcement> m_announcements; ///< by the characters of their indents
    std::map<QString, int> m_last;             ///< what was asked for
};

} // namespace Halvorin::Text

#endif
