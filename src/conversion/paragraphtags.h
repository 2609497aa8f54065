#ifndef PARAGRAPHTAGS_H
#define PARAGRAPHTAGS_H

#include <QString>

namespace Halvorin::Text {

/// What "<p\h?.*?>((?:.|\R)*)<\/p>" captures first in a text, or the text: from behind the first tag that
/// begins with "<p", of whatever name, to the last end of a paragraph.
QString withoutSurroundingParagraphTags(QString&& text);

} // namespace Halvorin::Text

#endif
