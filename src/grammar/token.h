#ifndef TOKEN_H
#define TOKEN_H

#include <QStringList>

namespace Halvorin::TextMate {

/// A stretch of a line and what it is: scopes from the outermost to the innermost. Positions count UTF-16
/// units.
struct Token
{
    int start = 0;
    int length = 0;
    QStringList scopes;

    friend bool operator==(const Token& first, const Token& second)
    {
        return first.start == second.start && first.length == second.length && first.scopes == second.scopes;
    }
};

} // namespace Halvorin::TextMate

#endif
