#include "highlight/visibletext.h"

QString withoutControls(QString text, QChar replacement)
{
    for (QChar& character : text) {
        const bool isControl = character.category() == QChar::Other_Control && character != QLatin1Char('\t');
        if (isControl || character.isNonCharacter())
            character = replacement;
    }
    return text;
}
