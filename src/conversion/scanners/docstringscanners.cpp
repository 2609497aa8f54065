#include "conversion/scanners/blockscanners.h"

namespace Halvorin::Text {

bool scanModule(SourceText& text, Hit& hit)
{
    const int start = text.position();
    const QString label = QStringLiteral("(module) ");
    const int name = start + label.size();
    if (!text.startsAt(start, label) || name == text.size() || !isWord(text[name]))
        return false;
    hit.whole = {start, text.skip(name, text.size(), [](char16_t c) { return !isSpace(c); })};
    return true;
}

bool scanLabel(SourceText& text, const QString& label, Hit& hit)
{
    const int start = text.position();
    if (!text.startsAt(start, label))
        return false;
    hit.whole = text.lineAt(start);
    return true;
}

bool scanSeeAlso(SourceText& text, Hit& hit)
{
    const QString words = QStringLiteral("See Also");
    if (!text.startsAt(text.position(), words)) // before its line is sought: there may be no other for long
        return false;
    const Line title = text.lineAt(text.position());
    if (!text.hasNext(title) ||
        text.skip(title.start + words.size(), title.end, isHorizontalSpace) != title.end)
        return false;
    const Line under = text.next(title);
    const int rule = text.skip(under.start, under.end, isHorizontalSpace);
    const int behindRule = text.skip(rule, under.end, [](char16_t c) { return c == u'-'; });
    if (behindRule - rule < 8 || text.skip(behindRule, under.end, isHorizontalSpace) != under.end ||
        !text.hasNext(under))
        return false;

    hit.groups[0] = {under.end + 1, under.end + 1};
    for (Line line = text.next(under);; line = text.next(line)) {
        if (!text.hasNext(line)) { // the end of the text ends a line too
            hit.groups[0].end = line.end;
            break;
        }
        const int nextStart = line.end + 1;
        const int behindIndent = text.skip(nextStart, text.size(), isHorizontalSpace);
        if (behindIndent < text.size() && text[behindIndent] == u'-')
            break; // the line is the title of another section
        hit.groups[0].end = nextStart;
    }
    hit.whole = {title.start, hit.groups[0].end};
    return true;
}

} // namespace Halvorin::Text
