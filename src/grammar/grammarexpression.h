#ifndef GRAMMAREXPRESSION_H
#define GRAMMAREXPRESSION_H

#include <QRegularExpression>
#include <QString>
#include <variant>

namespace Halvorin::TextMate {

/// A regular expression of a grammar. One whose meaning is the same everywhere is compiled when it is made;
/// one with \A, \G or a back-reference is kept as text, since its final form depends on where it is tried, or
/// on what the "begin" of its rule has captured.
class AbstractGrammarExpression
{
public:
    virtual ~AbstractGrammarExpression() = default;

    /// Whether the source has the two characters \A, or \G.
    bool hasAnchorA() const { return m_hasAnchorA; }
    bool hasAnchorG() const { return m_hasAnchorG; }
    /// Whether it has a backslash and a number that does not start with 0.
    bool hasBackReference() const { return m_hasBackReference; }

    /// Whether there is no expression at all, which matches nothing.
    bool isEmpty() const { return std::holds_alternative<std::monostate>(m_expression); }
    /// Null for an expression that is kept as text.
    const QRegularExpression* compiled() const { return std::get_if<QRegularExpression>(&m_expression); }
    /// The source, in either case.
    QString pattern() const;

protected:
    AbstractGrammarExpression() = default;
    /// An expression that cannot be compiled is reported to the debug stream, stays, and matches nothing.
    explicit AbstractGrammarExpression(const QString& pattern);
    AbstractGrammarExpression(const AbstractGrammarExpression&) = default;
    AbstractGrammarExpression& operator=(const AbstractGrammarExpression&) = default;

private:
    bool m_hasAnchorA = false;
    bool m_hasAnchorG = false;
    bool m_hasBackReference = false;
    std::variant<std::monostate, QRegularExpression, QString> m_expression;
};

/// The expression of "match" or "begin".
class GrammarExpression : public AbstractGrammarExpression
{
public:
    GrammarExpression() = default;
    explicit GrammarExpression(const QString& pattern) : AbstractGrammarExpression(pattern) {}
};

/// The expression of "end": its back-references speak of the groups of "begin".
class EndGrammarExpression : public AbstractGrammarExpression
{
public:
    EndGrammarExpression() = default;
    explicit EndGrammarExpression(const QString& pattern) : AbstractGrammarExpression(pattern) {}
};

/// Compiles an expression, ready to match. One that is not valid is reported to the debug stream.
QRegularExpression compileExpression(const QString& pattern);

} // namespace Halvorin::TextMate

#endif
