#include "linetokeniser/linetokeniser.h"

#include "grammar/grammar.h"
#include "grammar/grammarprocessor.h"

namespace Halvorin::TextMate {

struct LineTokeniser::State
{
    explicit State(const QString& path) : grammar(std::make_shared<const Grammar>(path)), processor(grammar)
    {}

    std::shared_ptr<const Grammar> grammar;
    GrammarProcessor processor;
    TokenList line;
};

LineTokeniser::LineTokeniser(const QString& grammarPath) : m_state(std::make_unique<State>(grammarPath)) {}

LineTokeniser::LineTokeniser(LineTokeniser&&) noexcept = default;
LineTokeniser& LineTokeniser::operator=(LineTokeniser&&) noexcept = default;
LineTokeniser::~LineTokeniser() = default;

bool LineTokeniser::canRead(const QString& grammarPath)
{
    return Grammar::type(grammarPath) != GrammarType::Unknown;
}

bool LineTokeniser::hasRules() const
{
    return !m_state->grammar->patterns().empty();
}

const std::vector<Token>& LineTokeniser::nextLine(const QString& line)
{
    const Continuation open = m_state->line.takeContinuation();
    m_state->line = {}; // frees its memory before the next line takes more
    m_state->line = m_state->processor.tokenise(line + QLatin1Char('\n'), open);
    return m_state->line.tokens();
}

} // namespace Halvorin::TextMate
