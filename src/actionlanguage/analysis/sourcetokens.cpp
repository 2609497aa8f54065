#include "actionlanguage/analysis/sourcetokens.h"

#include "actionlanguage/tokens/tokeniser.h"
#include "actionlanguage/types/typespecifier.h"

#include <algorithm>

SourceTokens::SourceTokens(std::string_view source) : m_end{source.size(), 0}
{
    std::vector<Diagnostic> findings;
    m_tokens = tokenise(source, findings);
    markBareDeclarations();
    findPartners();
}

void SourceTokens::markBareDeclarations()
{
    m_isBare.resize(m_tokens.size());
    bool isDeclaration = false;
    bool isDeclarator = false; // the next name is one
    int depth = 0;             // of brackets in the values of a declaration
    for (std::size_t i = 0; i < m_tokens.size(); ++i) {
        const Token& token = m_tokens[i];
        if (token.is(PunctuatorId::semicolon)) {
            isDeclaration = false;
        } else if (isDeclarationWord(token)) {
            isDeclaration = true;
            isDeclarator = true;
            depth = 0;
        } else if (!isDeclaration) {
            continue;
        } else if (token.is(PunctuatorId::openParenthesis)) {
            ++depth;
        } else if (token.is(PunctuatorId::closeParenthesis)) {
            --depth;
        } else if (token.is(PunctuatorId::comma) && depth == 0) {
            isDeclarator = true;
        } else if (isDeclarator && token.kind() == TokenKind::identifier) {
            isDeclarator = false;
            m_isBare[i] = i + 1 == m_tokens.size() || !m_tokens[i + 1].is(PunctuatorId::assign);
        }
    }
}

void SourceTokens::findPartners()
{
    m_partners.resize(m_tokens.size(), m_tokens.size());
    std::vector<std::size_t> open;
    for (std::size_t i = 0; i < m_tokens.size(); ++i) {
        if (m_tokens[i].is(PunctuatorId::openParenthesis)) {
            open.push_back(i);
        } else if (m_tokens[i].is(PunctuatorId::closeParenthesis) && !open.empty()) {
            m_partners[open.back()] = i;
            open.pop_back();
        }
    }
}

template <class Predicate>
SourceSpan SourceTokens::takeFirst(Predicate predicate)
{
    for (std::size_t i = m_next; i < m_tokens.size(); ++i) {
        if (!m_isBare[i] && predicate(m_tokens[i])) {
            m_next = i + 1;
            return m_tokens[i].span();
        }
    }
    return m_end;
}

SourceSpan SourceTokens::takeLiteral()
{
    return takeFirst([](const Token& token) { return token.kind() == TokenKind::literal; });
}

SourceSpan SourceTokens::takeTruth()
{
    return takeFirst(
        [](const Token& token) { return token.is(KeywordId::true_) || token.is(KeywordId::false_); });
}

SourceSpan SourceTokens::takeName()
{
    return takeFirst(
        [](const Token& token) { return token.kind() == TokenKind::identifier && !isTypeWord(token); });
}

SourceSpan SourceTokens::takeText(std::string_view text)
{
    return takeFirst([&](const Token& token) { return token.text() == text; });
}

SourceSpan SourceTokens::partnerOfNext() const
{
    const std::size_t partner = m_next < m_partners.size() ? m_partners[m_next] : m_tokens.size();
    return partner < m_tokens.size() ? m_tokens[partner].span() : m_end;
}

SourceSpan SourceTokens::withParentheses(const SourceSpan& span) const
{
    const auto startOf = [](const Token& token) { return token.position(); };
    const auto first = std::ranges::lower_bound(m_tokens, span.position, {}, startOf);
    const auto behind = std::ranges::lower_bound(m_tokens, span.end(), {}, startOf);
    auto before = static_cast<std::size_t>(first - m_tokens.begin()); // one behind the candidate
    auto next = static_cast<std::size_t>(behind - m_tokens.begin());
    SourceSpan widened = span;
    while (before > 0 && next < m_tokens.size() && m_partners[before - 1] == next) {
        --before;
        widened = joined(m_tokens[before].span(), m_tokens[next].span());
        ++next;
    }
    return widened;
}
