#include "statechart/check/unreadnames.h"

#include "actionlanguage/tokens/compilationexception.h"
#include "actionlanguage/tokens/tokeniser.h"

namespace {

std::string_view insideQuotes(const Token& token)
{
    return token.text().size() < 2 ? std::string_view() : token.text().substr(1, token.text().size() - 2);
}

/// Whether the parenthesis at `open` is followed by one string literal as the whole first argument.
bool namesByLiteral(const std::vector<Token>& tokens, std::size_t open)
{
    return open + 2 < tokens.size() && tokens[open + 1].is(LiteralKind::string) &&
           (tokens[open + 2].is(PunctuatorId::comma) || tokens[open + 2].is(PunctuatorId::closeParenthesis));
}

/// A call whose name is computed may mean each name that fits.
void useComputed(const std::vector<Token>& tokens, std::size_t index, DeclaredNames& names)
{
    if (tokens[index].kind() != TokenKind::identifier)
        return;
    const NamingFunction* const function = namingFunctionOf(tokens[index].text());
    if (function != nullptr && !namesByLiteral(tokens, index + 1))
        names.useAny(function->role);
}

} // namespace

void useNamesIn(std::string_view source, DeclaredNames& names)
{
    try {
        std::vector<Diagnostic> findings;
        const std::vector<Token> tokens = tokenise(source, findings);
        for (std::size_t i = 0; i < tokens.size(); ++i) {
            if (tokens[i].is(LiteralKind::string))
                names.useEverywhere(insideQuotes(tokens[i]));
            useComputed(tokens, i, names);
        }
    } catch (const TokeniserAllocationFailure&) {
        names.useAll();
    }
}

void useNamesInUnreadStates(const ChartModel& chart, DeclaredNames& names)
{
    std::vector<const JsonValue*> open; // no recursion: nobody has looked at how deep these nest
    for (const ChartState& state : chart.states()) {
        const JsonValue* const substates = state.definition->find("substates");
        if (state.isRead && state.hasUnknownTypeWord() && substates != nullptr)
            open.push_back(substates);
    }
    while (!open.empty()) {
        const JsonValue& value = *open.back();
        open.pop_back();
        if (value.isString())
            useNamesIn(value.asString(), names);
        if (value.isArray()) {
            for (const JsonValue& element : value.asArray())
                open.push_back(&element);
        }
        if (value.isObject()) {
            for (const JsonMember& member : value.asObject())
                open.push_back(&member.value);
        }
    }
}
