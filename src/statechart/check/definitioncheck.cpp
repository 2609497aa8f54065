#include "statechart/check/definitioncheck.h"

#include "actionlanguage/analysis/constantfolding.h"
#include "actionlanguage/analysis/escapeplaces.h"
#include "statechart/check/failurewords.h"
#include "statechart/check/lints.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/devicefunctions.h"
#include "statechart/json/jsonreader.h"

#include <algorithm>
#include <optional>
#include <sstream>
#include <utility>

namespace {

constexpr std::string_view numberCharacters = "+-.0123456789Ee";

constexpr auto lints = {lintStates,  lintTransitions, lintEndlessTransitions, lintNames, lintExpressions,
                        lintNumbers, lintKeys};

void addUnknownEscape(const Diagnostic& warning, const EscapePlaces& places, const ActionText& text,
                      FindingReport& report)
{
    const SourceSpan span = places.placeOf(warning.position);
    report.addInText(
        {FindingKind::unknownEscape, warningText(warning.code, blamedText(text.source, span)), warning.code},
        text, span);
}

void addWarnings(const CompileRecord& record, FindingReport& report)
{
    for (const CompileRecord::CompiledText& compiled : record.texts()) {
        const ActionText& text = compiled.text;
        std::optional<EscapePlaces> places;
        for (const Diagnostic& warning : compiled.warnings) {
            if (static_cast<LanguageWarning>(warning.code) == LanguageWarning::unrecognisedEscape) {
                if (!places)
                    places.emplace(text.source);
                addUnknownEscape(warning, *places, text, report);
                continue;
            }
            const SourceSpan span{warning.position, warning.length};
            report.addInText({FindingKind::unassignedVariable,
                              warningText(warning.code, blamedText(text.source, span)), warning.code},
                             text, span);
        }
    }
}

void addFailures(const CompileRecord& record, FindingReport& report)
{
    for (const CompileRecord::Failure& failure : record.failures()) {
        const std::string_view source = failure.text ? failure.text->source : std::string_view();
        for (FailureWords& words : wordsOf(failure.exception, source)) {
            if (failure.text) {
                report.addInText({FindingKind::invalidAction, std::move(words.text), words.code},
                                 *failure.text, words.span);
            } else {
                report.addAt({FindingKind::invalidDefinition, std::move(words.text)}, failure.place.path());
            }
        }
    }
}

/// The one device function whose value depends on nothing but its argument.
FunctionRules pureDeviceFunctions()
{
    FunctionRules rules = constructDeviceFunctionRules();
    std::erase_if(rules, [](const auto& rule) { return rule->name() != "etod"; });
    return rules;
}

/// The reader stops behind what is wrong with a number out of range: then that is blamed, from its start.
JsonRange blamedRange(const JsonReadException& failure, std::string_view definition)
{
    const auto offset = static_cast<std::size_t>(failure.position());
    if (failure.reason() != "invalid number")
        return {offset, offset < definition.size() ? 1u : 0u};
    const std::size_t end = std::min(offset, definition.size());
    std::size_t start = end;
    while (start > 0 && numberCharacters.find(definition[start - 1]) != std::string_view::npos)
        --start;
    return {start, end - start};
}

void checkDevice(const JsonObject& definition, FindingReport& report)
{
    DDStateChartCompiler compiler(DDCodeBuilderFactory::createCodeBuilder(), OnFailure::goOn);
    compiler.compile(definition);
    const CompileRecord& record = std::as_const(compiler).record();
    addFailures(record, report);
    addWarnings(record, report);

    const std::vector<CheckedText> texts = checkedTextsOf(record);
    const ConstantFolding folding(pureDeviceFunctions());
    const ChartModel chart(definition, texts, folding);
    for (const auto lint : lints)
        lint({definition, texts, record.failures(), chart, folding}, report);
}

} // namespace

std::vector<Finding> checkDefinition(std::string_view definition, const FindingRules& rules)
{
    FindingReport report(definition, rules);
    std::istringstream stream{std::string(definition)};
    try {
        const JsonDocument document = readDocument(stream);
        checkDevice(asObject(document), report);
    } catch (const JsonReadException& failure) {
        report.addAtOffset({FindingKind::invalidJson, JsonLineNumberReadException(failure, stream).what()},
                           blamedRange(failure, definition));
    } catch (const JsonException& failure) {
        report.addAt({FindingKind::invalidJson, failure.what()}, {});
    }
    return report.take();
}
