#ifndef EXPRESSIONITEM_H
#define EXPRESSIONITEM_H

#include "actionlanguage/rules/compilationobject.h"
#include "actionlanguage/tokens/token.h"

#include <variant>
#include <vector>

/// One element of the flat list that an expression is parsed in: a token that no rule has taken yet, or what
/// a rule made of several. Its span runs from the start of the first item to the end of the last.
class ExpressionItem
{
public:
    explicit ExpressionItem(const Token& token) : m_content(token), m_span(token.span()) {}
    ExpressionItem(ExpressionCompilationObject compiled, const SourceSpan& span)
        : m_content(std::move(compiled)), m_span(span)
    {}

    const SourceSpan& span() const { return m_span; }

    bool isCompiled() const { return std::holds_alternative<ExpressionCompilationObject>(m_content); }

    /// The token, or null once compiled.
    const Token* token() const { return std::get_if<Token>(&m_content); }

    /// Hands out what was compiled; the item is of no use after that.
    ExpressionCompilationObject takeCompiled()
    {
        return std::move(std::get<ExpressionCompilationObject>(m_content));
    }

    bool isToken(PunctuatorId id) const { return token() && token()->is(id); }
    bool isIdentifier() const { return token() && token()->kind() == TokenKind::identifier; }
    bool isPunctuator() const { return token() && token()->kind() == TokenKind::punctuator; }

    /// Whether this is an uncompiled punctuator with this text. Rules compare texts and not ids, since ">>"
    /// carries the id of ">=".
    bool isOperator(std::string_view text) const { return isPunctuator() && token()->text() == text; }

private:
    std::variant<Token, ExpressionCompilationObject> m_content;
    SourceSpan m_span;
};

using ItemList = std::vector<ExpressionItem>;

#endif
