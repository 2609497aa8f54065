#ifndef LINEEXPRESSION_H
#define LINEEXPRESSION_H

#include "grammar/searchexpression.h"

#include <optional>

namespace Halvorin::TextMate {

/// A line as expressions are searched for in it.
struct SearchedLine
{
    QString text;
    UnitSet units;       ///< that the text has
    unsigned number = 0; ///< no other line of the same processor has it
};

/// An expression, and where it was found last in the line that is being searched. A search from further right
/// is not repeated while the hit lies ahead; one that reaches the library's limits is not repeated in the
/// line at all.
class LineExpression
{
public:
    /// Compiled when it is first searched for. `isReported` says that the log knows already whether it is
    /// valid.
    LineExpression(const QString& pattern, bool isReported) : m_pattern(pattern), m_isReported(isReported) {}

    /// Whether a line may have a match.
    bool canMatch(const SearchedLine& line) { return expression().canMatch(line.units); }
    /// Whether no match from one place means none from further right in the line.
    bool isRepeatable() { return expression().isRepeatable(); }

    /// The start of the first match from a position on, -1 when there is none.
    int find(const SearchedLine& line, int from);
    /// The same with the groups.
    bool match(const SearchedLine& line, int from, Match& match);

private:
    const SearchExpression& expression();

    QString m_pattern;
    bool m_isReported;
    std::optional<SearchExpression> m_expression;

    unsigned m_line = 0; // of which the rest speaks
    int m_from = 0;
    SearchExpression::Hit m_hit;
};

} // namespace Halvorin::TextMate

#endif
