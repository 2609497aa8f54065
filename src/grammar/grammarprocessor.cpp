#include "grammar/grammarprocessor.h"

#include "grammar/continuations.h"
#include "grammar/expandableprocessors.h"

namespace Halvorin::TextMate {

namespace {

/// From the innermost item outward, until one is open at the end of the line.
ProcessResult continueAll(GrammarLine& line, const Continuation& innermost)
{
    ProcessResult result = innermost->continueProcessing(std::nullopt, line);
    for (Continuation item = innermost->parent(); item; item = item->parent()) {
        const auto* completed = std::get_if<Completed>(&result);
        if (completed == nullptr)
            break;
        result = item->continueProcessing(completed->end, line);
    }
    return result;
}

} // namespace

GrammarProcessor::GrammarProcessor(std::shared_ptr<const Grammar> grammar)
    : m_rules(std::make_unique<RuleSearch>(std::move(grammar))), m_memory(std::make_unique<LineMemory>())
{}

GrammarProcessor::~GrammarProcessor() = default;

TokenList GrammarProcessor::tokenise(const QString& line)
{
    return tokenise(line, nullptr);
}

TokenList GrammarProcessor::tokenise(const QString& text, const Continuation& continuation)
{
    GrammarLine line(text, *m_rules, *m_memory);
    const ProcessResult result =
        continuation ? continueAll(line, continuation)
                     : std::make_shared<RootProcessorStackItem>(m_rules->rootScopes(), 0)->process(line);
    const auto* open = std::get_if<Continued>(&result);
    return {line.tokens().take(), open ? open->continuation : nullptr};
}

} // namespace Halvorin::TextMate
