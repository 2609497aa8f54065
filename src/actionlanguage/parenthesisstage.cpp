#include "actionlanguage/parenthesisstage.h"

#include "actionlanguage/tokens/compilationexception.h"
#include "actionlanguage/types/typespecifier.h"

#include <algorithm>
#include <array>
#include <span>

namespace {

/// The punctuators that are no operators.
constexpr auto plainPunctuators = std::to_array<PunctuatorId>({
    PunctuatorId::openBrace,
    PunctuatorId::closeBrace,
    PunctuatorId::semicolon,
    PunctuatorId::hash,
    PunctuatorId::hashHash,
    PunctuatorId::colonColon,
});

bool isOperatorToken(const ExpressionItem& item)
{
    return item.isPunctuator() && std::ranges::count(plainPunctuators, item.token()->punctuator()) == 0;
}

/// The index of the ")" that closes the "(" at `open`.
std::size_t findClose(std::span<const ExpressionItem> items, std::size_t open)
{
    std::size_t depth = 0;
    for (std::size_t index = open; index < items.size(); ++index) {
        if (items[index].isToken(PunctuatorId::openParenthesis))
            ++depth;
        else if (items[index].isToken(PunctuatorId::closeParenthesis) && --depth == 0)
            return index;
    }
    throw CompilationException(LanguageError::expectedCloseParenthesis,
                               joined(items[open].span(), items.back().span()));
}

bool isTypeWordItem(const ExpressionItem& item)
{
    return item.token() && isDeclarationWord(*item.token());
}

} // namespace

void compileParentheses(ItemList& items, const std::function<ExpressionCompilationObject(ItemList)>& parse)
{
    const auto isOpen = [](const ExpressionItem& item) {
        return item.isToken(PunctuatorId::openParenthesis);
    };
    if (std::ranges::none_of(items, isOpen))
        return;

    ItemList done;
    done.reserve(items.size());
    for (std::size_t index = 0; index < items.size(); ++index) {
        const bool mayGroup = done.empty() || isOperatorToken(done.back());
        if (!isOpen(items[index]) || !mayGroup) {
            done.push_back(std::move(items[index]));
            continue;
        }
        const std::size_t close = findClose(items, index);
        if (close == index + 1)
            throw CompilationException(LanguageError::unexpectedInExpression, items[close].span());
        const auto first = items.begin() + static_cast<std::ptrdiff_t>(index) + 1;
        const auto last = items.begin() + static_cast<std::ptrdiff_t>(close);
        if (std::all_of(first, last, isTypeWordItem)) {
            done.push_back(std::move(items[index]));
            continue;
        }
        const SourceSpan span = joined(items[index].span(), items[close].span());
        done.emplace_back(parse(ItemList(std::make_move_iterator(first), std::make_move_iterator(last))),
                          span);
        index = close;
    }
    items = std::move(done);
}
