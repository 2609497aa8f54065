#include "actionlanguage/expressionextent.h"

#include "actionlanguage/tokens/compilationexception.h"

namespace {

/// The tokens of an expression, each counted once for every bracket that is open around it. A text that is
/// deep and wide at once would take time and memory by the product.
constexpr std::size_t maximumWork = 2'000'000;

/// The brackets that are open, and with them the answer whether a token still belongs to the expression.
class OpenBrackets
{
public:
    explicit OpenBrackets(bool commaAllowed) : m_commaAllowed(commaAllowed) {}

    bool takes(const Token& token)
    {
        if (token.kind() == TokenKind::fileEnd)
            return false;
        // Each level of brackets goes over all that stands in it again.
        m_work += m_partners.size();
        if (m_work > maximumWork)
            throw NestingException(token.span());
        if (token.kind() != TokenKind::punctuator)
            return true;
        switch (token.punctuator()) {
        case PunctuatorId::openParenthesis:
            return open(PunctuatorId::closeParenthesis, token);
        case PunctuatorId::openBracket:
            return open(PunctuatorId::closeBracket, token);
        case PunctuatorId::openBrace:
            return open(PunctuatorId::closeBrace, token);
        case PunctuatorId::closeParenthesis:
        case PunctuatorId::closeBracket:
        case PunctuatorId::closeBrace:
            return close(token.punctuator());
        case PunctuatorId::comma:
            return m_commaAllowed || !m_partners.empty();
        case PunctuatorId::semicolon:
            return false;
        default:
            return true;
        }
    }

private:
    bool open(PunctuatorId partner, const Token& token)
    {
        if (m_partners.size() == languageMaximumDepth)
            throw NestingException(token.span());
        m_partners.push_back(partner);
        return true;
    }

    bool close(PunctuatorId id)
    {
        if (m_partners.empty() || m_partners.back() != id)
            return false;
        m_partners.pop_back();
        return true;
    }

    bool m_commaAllowed;
    std::vector<PunctuatorId> m_partners;
    std::size_t m_work = 0;
};

} // namespace

ItemList gatherExpression(TokenStream& tokens, bool commaAllowed)
{
    OpenBrackets brackets(commaAllowed);
    ItemList items;
    while (brackets.takes(tokens.next()))
        items.emplace_back(tokens.advance());
    return items;
}

ItemList gatherExpression(ItemStream& stream, bool commaAllowed)
{
    OpenBrackets brackets(commaAllowed);
    ItemList items;
    while (!stream.atEnd() && (stream.next()->isCompiled() || brackets.takes(*stream.next()->token())))
        items.push_back(std::move(stream.advance()));
    return items;
}
