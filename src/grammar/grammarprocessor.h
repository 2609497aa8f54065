#ifndef GRAMMARPROCESSOR_H
#define GRAMMARPROCESSOR_H

#include "grammar/continuation.h"
#include "grammar/token.h"

#include <QString>
#include <memory>
#include <vector>

namespace Halvorin::TextMate {

class Grammar;
class RuleSearch;
class LineMemory;

using Continuation = std::shared_ptr<const AbstractContinuationProcessorStackItem>;

/// The tokens of a line, and what is open at its end.
class TokenList
{
public:
    TokenList() = default;
    TokenList(std::vector<Token> tokens, Continuation continuation)
        : m_tokens(std::move(tokens)), m_continuation(std::move(continuation))
    {}

    /// By their start. Not every column has a token: a line that ends inside an item has none around what the
    /// inner rules gave.
    const std::vector<Token>& tokens() const { return m_tokens; }
    bool hasContinuation() const { return m_continuation != nullptr; }
    Continuation takeContinuation() { return std::move(m_continuation); }

private:
    std::vector<Token> m_tokens;
    Continuation m_continuation;
};

/// Turns the lines of a text into tokens by the rules of a TextMate grammar, one line after the other:
///
///     GrammarProcessor processor(grammar);
///     TokenList tokens = processor.tokenise(QStringLiteral("x = '''\n"));
///     tokens = processor.tokenise(QStringLiteral("y'''\n"), tokens.takeContinuation());
///
/// A line ends with "\n". Nothing throws, and each line comes to an end, whatever the grammar. Compiled
/// expressions are kept; one thread at a time.
class GrammarProcessor
{
public:
    explicit GrammarProcessor(std::shared_ptr<const Grammar> grammar);
    ~GrammarProcessor();

    TokenList tokenise(const QString& line);
    /// From the continuation of the line before; a null one is the start of the text.
    TokenList tokenise(const QString& line, const Continuation& continuation);

private:
    std::unique_ptr<RuleSearch> m_rules;
    std::unique_ptr<LineMemory> m_memory;
};

} // namespace Halvorin::TextMate

#endif
