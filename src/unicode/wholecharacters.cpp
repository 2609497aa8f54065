#include "unicode/wholecharacters.h"

namespace Halvorin::Text {

QString wholeCharacters(QString text)
{
    for (int at = 0; at < text.size(); ++at) {
        const QChar unit = qAsConst(text).at(at);
        if (!unit.isSurrogate())
            continue;
        if (unit.isHighSurrogate() && at + 1 < text.size() && qAsConst(text).at(at + 1).isLowSurrogate())
            ++at;
        else
            text[at] = QChar(QChar::ReplacementCharacter);
    }
    return text;
}

} // namespace Halvorin::Text
