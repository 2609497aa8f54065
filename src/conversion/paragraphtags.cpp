#include "conversion/paragraphtags.h"

namespace Halvorin::Text {

QString withoutSurroundingParagraphTags(QString&& text)
{
    const int last = text.lastIndexOf(QLatin1String("</p>"));
    for (int start = text.indexOf(QLatin1String("<p")); start >= 0;) {
        const int closing = text.indexOf(QLatin1Char('>'), start + 2);
        if (closing < 0 || closing >= last) // what opens later is closed no better
            break;
        const int lineFeed = text.midRef(start, closing - start).lastIndexOf(QLatin1Char('\n'));
        if (lineFeed < 0)
            return text.mid(closing + 1, last - closing - 1);
        // none that opens before that line feed is closed on its line
        start = text.indexOf(QLatin1String("<p"), start + lineFeed);
    }
    return std::move(text);
}

} // namespace Halvorin::Text
