#include "statechart/check/failurewords.h"

#include "actionlanguage/codebuilder.h"
#include "actionlanguage/tokens/compilationexception.h"
#include "statechart/actionfindings.h"
#include "statechart/statechartcompilerexception.h"
#include "statechart/text/textwidth.h"

#include <algorithm>

namespace {

/// A byte of no token is worded by the whole character that it starts: a part of one is no text.
std::string_view shownText(std::string_view source, const Diagnostic& finding)
{
    const std::string_view blamed = blamedText(source, {finding.position, finding.length});
    if (finding.code != static_cast<std::uint32_t>(LanguageError::unknownToken) || blamed.empty())
        return blamed;
    return source.substr(finding.position,
                         std::max(blamed.size(), characterLength(source.substr(finding.position))));
}

std::vector<FailureWords> wordsOf(const std::vector<Diagnostic>& findings, std::string_view source)
{
    std::vector<FailureWords> all;
    for (const Diagnostic& finding : findings) {
        all.push_back({errorText(finding.code, shownText(source, finding)), finding.code,
                       SourceSpan{finding.position, finding.length}});
    }
    return all;
}

FailureWords wordsOfError(const CompilationException& failure, std::string_view source)
{
    FailureWords words{failure.what(), std::nullopt, failure.span()};
    try {
        words.text = failure.message(source);
    } catch (const std::out_of_range&) {
        // It blames what stands behind the text: then its place is all that is known.
    }
    if (dynamic_cast<const NestingException*>(&failure) == nullptr) // its words are in no table
        words.code = static_cast<std::uint32_t>(failure.code());
    return words;
}

} // namespace

std::vector<FailureWords> wordsOf(const std::exception_ptr& failure, std::string_view source)
{
    try {
        std::rethrow_exception(failure);
    } catch (const StateChartCompilerException& exception) {
        if (exception.cause())
            return wordsOf(exception.cause(), source);
        return {{exception.message(), std::nullopt, std::nullopt}};
    } catch (const CompilationException& exception) {
        return {wordsOfError(exception, source)};
    } catch (const LiteralConversionException& exception) {
        return {{exception.what(), std::nullopt, exception.span()}};
    } catch (const TooManyTokensException& exception) {
        return {{exception.what(), std::nullopt, exception.span()}};
    } catch (const TokeniserAllocationFailure& exception) {
        const Diagnostic unknown{static_cast<std::uint32_t>(LanguageError::unknownToken),
                                 exception.position(), 1};
        return wordsOf(std::vector{unknown}, source);
    } catch (const ActionFindingsException& exception) {
        return wordsOf(exception.findings(), source);
    } catch (const CompileFindingsException& exception) {
        return wordsOf(exception.findings(), source);
    } catch (const std::exception& exception) {
        return {{exception.what(), std::nullopt, std::nullopt}};
    }
}
