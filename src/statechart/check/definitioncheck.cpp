#include "statechart/check/definitioncheck.h"

#include "actionlanguage/analysis/constantfolding.h"
#include "statechart/check/failurewords.h"
#include "statechart/check/lints.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/json/jsonreader.h"

#include <sstream>
#include <utility>

namespace {

constexpr auto lints = {lintStates, lintTransitions, lintEndlessTransitions, lintNames, lintExpressions};

FindingKind kindOf(LanguageWarning warning)
{
    return warning == LanguageWarning::unrecognisedEscape ? FindingKind::unknownEscape
                                                          : FindingKind::unassignedVariable;
}

void addWarnings(const CompileRecord& record, FindingReport& report)
{
    for (const CompileRecord::CompiledText& compiled : record.texts()) {
        for (const Diagnostic& warning : compiled.warnings) {
            const SourceSpan span{warning.position, warning.length};
            report.addInText({kindOf(static_cast<LanguageWarning>(warning.code)),
                              warningText(warning.code, blamedText(compiled.text.source, span)),
                              warning.code},
                             compiled.text, span);
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
                report.addAt({FindingKind::invalidDefinition, std::move(words.text)}, failure.place);
            }
        }
    }
}

void checkDevice(const JsonObject& definition, FindingReport& report)
{
    DDStateChartCompiler compiler(DDCodeBuilderFactory::createCodeBuilder(), OnFailure::goOn);
    compiler.compile(definition);
    const CompileRecord& record = std::as_const(compiler).record();
    addFailures(record, report);
    addWarnings(record, report);

    const std::vector<CheckedText> texts = checkedTextsOf(record);
    const ChartModel chart(definition, texts);
    const ConstantFolding folding;
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
        const auto offset = static_cast<std::size_t>(failure.position());
        report.addAtOffset({FindingKind::invalidJson, JsonLineNumberReadException(failure, stream).what()},
                           {offset, offset < definition.size() ? 1u : 0u});
    } catch (const JsonException& failure) {
        report.addAt({FindingKind::invalidJson, failure.what()}, {});
    }
    return report.take();
}
