#ifndef EXPRESSION_H
#define EXPRESSION_H

#include "conversion/core/sourcetext.h"

#include <QRegularExpression>
#include <array>
#include <functional>
#include <vector>

namespace Halvorin::Text {

/// Where an expression matched, and its groups in the order in which the expression's definition names them.
struct Hit
{
    Span whole;
    std::array<Span, 3> groups;

    /// The same, counted from another place.
    Hit movedBy(int distance) const;
};

/// A hit together with the text that it speaks of.
class Captures
{
public:
    Captures() = default;
    Captures(const QStringRef& source, const Hit& hit, SourceText* text = nullptr)
        : m_source(source), m_hit(hit), m_text(text)
    {}

    const QStringRef& source() const { return m_source; }
    /// The text that is under conversion, still at the start of the hit; null when a single match was asked
    /// for.
    SourceText* text() const { return m_text; }
    const Hit& hit() const { return m_hit; }
    QStringRef whole() const { return part(m_hit.whole); }
    /// Null for a group that took no part.
    QStringRef group(int index) const { return part(m_hit.groups[static_cast<std::size_t>(index)]); }

private:
    QStringRef part(Span span) const
    {
        return span.isNull() ? QStringRef() : m_source.mid(span.start, span.length());
    }

    QStringRef m_source;
    Hit m_hit;
    SourceText* m_text = nullptr;
};

/// The expression of a rule, and a scanner that finds the same by hand.
///
/// The library of expressions gives up on long texts, takes a time that grows with their square or worse, and
/// has its price for each call. So a rule may bring a scanner: one that answers for the position of a text
/// (`scan`), or one that finds the first hit from a place on (`find`). Positions are those of the whole text.
/// A `find` matches precisely what the expression matches; a `scan` too, where line feeds are the only ends
/// of lines. An expression with a scanner matches nothing in a text of blanks alone, and one with a `find`
/// looks at no more than one character behind.
struct RuleExpression
{
    QString name; ///< for logs and tests
    QString pattern;
    QRegularExpression::PatternOptions options = QRegularExpression::NoPatternOption;
    std::vector<QString> groups = {};
    std::function<bool(SourceText&, Hit&)> scan = nullptr;
    std::function<bool(SourceText&, int from, Hit&)> find = nullptr;
    bool isScanAlwaysExact = false; ///< whatever ends the lines
    QString withFewerSteps = {};    ///< another pattern that matches the same, to be tried at a position
};

/// A compiled expression that says when it was given up. A match that fails by a limit is tried once more
/// without the compiler to machine code, whose stack is the first limit to be reached.
class Expression
{
public:
    /// `steps` bounds an attempt at each place; then the compiler is never used, since its code does not
    /// count all of them. 0 leaves it at the library's own limit.
    explicit Expression(const QString& pattern,
                        QRegularExpression::PatternOptions options = QRegularExpression::NoPatternOption,
                        std::vector<QString> groups = {}, int steps = 0);

    enum class Outcome
    {
        match,
        noMatch,
        givenUp,
    };
    /// A source that is known to hold no halves of characters is not looked through for them, which takes
    /// time.
    Outcome match(const QStringRef& source, int offset, Hit& hit, bool isWellFormed = false) const;
    /// The same, without a word to the log or the count when it is given up.
    Outcome tryMatch(const QStringRef& source, int offset, Hit& hit, bool isWellFormed = false) const;

    /// How many matches of this program were given up, for tests.
    static int givenUpCount();

private:
    Outcome give(const QRegularExpressionMatch& match, Hit& hit) const;

    QString m_pattern;
    QRegularExpression m_expression;
    QRegularExpression m_withoutCompiler;
    std::vector<QString> m_groups;
};

/// An expression that is tried at the position of a text only, by its scanner where that knows the answer.
class PositionedExpression
{
public:
    explicit PositionedExpression(RuleExpression definition);

    /// The hit counts from the text's position, where it starts.
    bool matchHere(SourceText& text, Hit& hit) const;

    const RuleExpression& definition() const { return m_definition; }

private:
    RuleExpression m_definition;
    Expression m_here;         ///< with few steps, where a scanner stands ready
    Expression m_hereAtLength; ///< with more
};

/// All hits in a text, one behind the other: by the scanner where line feeds are the only ends of lines, by
/// the expression where they are not, unless it is given up. For expressions that match no empty text.
std::vector<Hit> findAll(const QStringRef& source, const RuleExpression& definition,
                         const std::function<std::vector<Hit>(const SourceText&)>& scan);

} // namespace Halvorin::Text

#endif
