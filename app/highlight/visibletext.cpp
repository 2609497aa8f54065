#include "highlight/visibletext.h"

QString withoutControls(QString text, QChar replacement)
{
    for (QChar& character : text) {
        if (character.category() == QChar::Other_Control && character != QLatin1Char('\t'))
            character = replacement;
    }
    return text;
}
