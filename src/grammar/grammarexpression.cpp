#include "grammar/grammarexpression.h"

#include <QDebug>

namespace Halvorin::TextMate {

AbstractGrammarExpression::AbstractGrammarExpression(const QString& pattern)
    : m_hasAnchorA(pattern.contains(QLatin1String("\\A"))),
      m_hasAnchorG(pattern.contains(QLatin1String("\\G")))
{
    static const QRegularExpression backReference(QStringLiteral("\\\\[1-9][0-9]*"));
    m_hasBackReference = pattern.contains(backReference);
    if (m_hasAnchorA || m_hasAnchorG || m_hasBackReference)
        m_expression = pattern;
    else
        m_expression = compileExpression(pattern);
}

QString AbstractGrammarExpression::pattern() const
{
    if (const QRegularExpression* expression = compiled())
        return expression->pattern();
    const QString* text = std::get_if<QString>(&m_expression);
    return text ? *text : QString();
}

QRegularExpression compileExpression(const QString& pattern)
{
    QRegularExpression expression(pattern);
    if (expression.isValid())
        expression.optimize();
    else
        qDebug().nospace().noquote() << "Expression error: " << pattern << " with reason "
                                     << expression.errorString();
    return expression;
}

} // namespace Halvorin::TextMate
