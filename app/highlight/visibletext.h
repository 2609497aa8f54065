#ifndef VISIBLETEXT_H
#define VISIBLETEXT_H

#include <QString>

/// The text with another character for every control character but the tab: neither a terminal nor a reader
/// of HTML shall act on what a file holds. Columns stay where they are.
QString withoutControls(QString text, QChar replacement);

#endif
