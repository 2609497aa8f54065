#include "actionlanguage/tokens/tokeniser.h"

#include "actionlanguage/tokens/scanner.h"

std::vector<Token> tokenise(std::string_view source, std::vector<Diagnostic>& diagnostics)
{
    std::vector<Token> tokens = Scanner(source, diagnostics).scan();
    for (Token& token : tokens) {
        if (token.kind() != TokenKind::identifier)
            continue;
        if (const auto keyword = keywordOf(token.text()))
            token.setDetail(BasicKeywordTokenDetail(*keyword));
    }
    return tokens;
}
