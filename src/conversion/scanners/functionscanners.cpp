#include "conversion/scanners/blockscanners.h"

#include <algorithm>
#include <vector>

namespace Halvorin::Text {

namespace {

/// A "def" that begins a function, and where it goes on: at the next function, or at the end of all.
struct Function
{
    int start;
    int next;
};

/// Finds which "def" in a text begin functions, up to an end that lets them stand as a block.
///
/// A function is "def", a name, a parenthesis that opens on the line of the name, and behind it, on whichever
/// line, one that closes with "->" behind it, an arrow. The next function follows, or an empty line, or the
/// end of the text; the rest of the arrow's line, and white space, may lie between. Which arrow is taken, and
/// where it goes on, depends on what follows only: so it is settled once for all, from the end of the text
/// backwards.
class FunctionFinder
{
public:
    explicit FunctionFinder(const SourceText& text) : m_text(text) {}

    /// In the order of the text.
    std::vector<Function> find()
    {
        std::vector<Line> lines = {m_text.lineAt(0)};
        while (m_text.hasNext(lines.back()))
            lines.push_back(m_text.next(lines.back()));
        for (std::size_t index = lines.size(); index-- > 0;) {
            if (m_text.isAllSpace(lines[index]))
                m_blankLines.push_back(lines[index].end);
            else
                settle(lines[index]);
        }
        std::ranges::reverse(m_functions);
        return std::move(m_functions);
    }

private:
    static constexpr int none = -1;

    /// What a name needs to know of its line. All arrows of a line go on at the same place.
    struct Settled
    {
        int textStart = none;
        int firstOpening = none;
        int lastOpening = none;
        int lastArrow = none;
        int target = none;
        int targetFurtherDown = none; ///< of the first line below that has an arrow
    };

    void settle(Line line)
    {
        Settled settled;
        settled.textStart = m_text.skip(line.start, line.end, isSpace);
        settled.target = placeBehind(line);
        settled.targetFurtherDown = m_ahead.lastArrow != none ? m_ahead.target : m_ahead.targetFurtherDown;
        for (int at = line.end; at-- > line.start;) {
            if (m_text[at] == u'(') {
                settled.firstOpening = at;
                settled.lastOpening = std::max(settled.lastOpening, at);
            } else if (m_text[at] == u')') {
                if (settled.target != none && settled.lastArrow == none && isArrow(at + 1, line.end))
                    settled.lastArrow = at;
            } else if (m_text[at] == u'd') {
                const int next = nextOfFunction(at, line, settled);
                if (next == none)
                    continue;
                m_functions.push_back({at, next});
                if (settled.target == none)
                    settled.target = at;
            }
        }
        m_ahead = settled;
        m_blankLines.clear();
    }

    /// The furthest place behind a line at which an arrow of the line may go on; white space lies before it.
    int placeBehind(Line line) const
    {
        if (m_ahead.textStart == none)
            return m_text.size();
        if (!m_functions.empty() && m_functions.back().start == m_ahead.textStart)
            return m_ahead.textStart;
        // else the line feed before the last one
        if (m_blankLines.empty())
            return none;
        return m_blankLines.size() == 1 ? line.end : m_blankLines[1];
    }

    bool isArrow(int at, int end) const
    {
        at = m_text.skip(at, end, isHorizontalSpace);
        return at + 1 < end && m_text[at] == u'-' && m_text[at + 1] == u'>';
    }

    int nextOfFunction(int at, Line line, const Settled& settled) const
    {
        if (m_text.size() - at < 4 || m_text[at + 1] != u'e' || m_text[at + 2] != u'f')
            return none;
        const int name = m_text.skip(at + 3, m_text.size(), isSpace);
        if (name == at + 3 || name == m_text.size() || !isWord(m_text[name]))
            return none;
        const Settled& named = name < line.end ? settled : m_ahead;
        if (named.lastOpening == none)
            return none;
        // The last parenthesis of the name's line is tried first, with what is behind it; then the others.
        if (named.lastArrow > named.lastOpening)
            return named.target;
        if (named.targetFurtherDown != none)
            return named.targetFurtherDown;
        return named.lastArrow > named.firstOpening ? named.target : none;
    }

    const SourceText& m_text;
    std::vector<Function> m_functions;
    Settled m_ahead;               ///< the next line that is not blank
    std::vector<int> m_blankLines; ///< the ends of those before it, backwards
};

/// The functions of a text, found when they are first asked for.
struct Functions
{
    bool areFound = false;
    std::vector<Function> list;
};

bool scanFunctionsAt(SourceText& text, int at, Hit& hit)
{
    Functions& functions = text.memory<Functions>();
    if (!functions.areFound) {
        functions.list = FunctionFinder(text).find();
        functions.areFound = true;
    }
    int end = at;
    for (;;) {
        const auto found = std::ranges::lower_bound(functions.list, end, {}, &Function::start);
        if (found == functions.list.end() || found->start != end)
            break;
        end = found->next;
    }
    if (end == at)
        return false;
    hit.groups[0] = {text.position(), end};
    hit.whole = {text.position(), end};
    const int behind = text.skip(end, text.size(), isSpace);
    for (int position = end; position < behind; ++position)
        if (text[position] == u'\n')
            hit.whole.end = position + 1;
    return true;
}

} // namespace

bool scanLabelledFunction(SourceText& text, Hit& hit)
{
    const QString label = QStringLiteral("(function)");
    if (!text.startsAt(text.position(), label))
        return false;
    const int behindLabel = text.position() + label.size();
    const int function = text.skip(behindLabel, text.size(), isSpace);
    return function > behindLabel && scanFunctionsAt(text, function, hit);
}

bool scanFunction(SourceText& text, Hit& hit)
{
    return text.startsAt(text.position(), QStringLiteral("def")) &&
           scanFunctionsAt(text, text.position(), hit);
}

} // namespace Halvorin::Text
