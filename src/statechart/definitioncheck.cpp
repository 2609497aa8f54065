#include "statechart/definitioncheck.h"

#include "actionlanguage/tokens/compilationexception.h"
#include "statechart/actionfindings.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/ddstatechartcompiler.h"
#include "statechart/definitionpath.h"
#include "statechart/json/jsonreader.h"
#include "statechart/linemap.h"
#include "statechart/text/textwidth.h"

#include <algorithm>
#include <sstream>
#include <utility>

namespace {

using Severity = Finding::Severity;

/// What a failure says, and what it blames in the action text that was compiled, if it was that of one.
struct Blame
{
    std::string text;
    std::optional<std::uint32_t> code;
    std::optional<SourceSpan> span;
};

/// A byte of no token is worded by the whole character that it starts: a part of one is no text.
std::string_view shownText(std::string_view source, const Diagnostic& finding)
{
    const std::string_view blamed = blamedText(source, {finding.position, finding.length});
    if (finding.code != static_cast<std::uint32_t>(LanguageError::unknownToken) || blamed.empty())
        return blamed;
    return source.substr(finding.position,
                         std::max(blamed.size(), characterLength(source.substr(finding.position))));
}

std::vector<Blame> blamesOf(const std::vector<Diagnostic>& findings, std::string_view source)
{
    std::vector<Blame> blames;
    for (const Diagnostic& finding : findings) {
        blames.push_back({errorText(finding.code, shownText(source, finding)), finding.code,
                          SourceSpan{finding.position, finding.length}});
    }
    return blames;
}

Blame blameOf(const CompilationException& failure, std::string_view source)
{
    Blame blame{failure.what(), std::nullopt, failure.span()};
    try {
        blame.text = failure.message(source);
    } catch (const std::out_of_range&) {
        // It blames what stands behind the text: then its place is all that is known.
    }
    if (dynamic_cast<const NestingException*>(&failure) == nullptr) // its words are in no table
        blame.code = static_cast<std::uint32_t>(failure.code());
    return blame;
}

/// Goes to the bottom of a failure, where the language says what is wrong in its own words.
std::vector<Blame> blamesOf(const std::exception_ptr& failure, std::string_view source)
{
    try {
        std::rethrow_exception(failure);
    } catch (const StateChartCompilerException& exception) {
        if (exception.cause())
            return blamesOf(exception.cause(), source);
        return {{exception.message(), std::nullopt, std::nullopt}};
    } catch (const CompilationException& exception) {
        return {blameOf(exception, source)};
    } catch (const LiteralConversionException& exception) {
        return {{exception.what(), std::nullopt, exception.span()}};
    } catch (const TokeniserAllocationFailure& exception) {
        const Diagnostic unknown{static_cast<std::uint32_t>(LanguageError::unknownToken),
                                 exception.position(), 1};
        return blamesOf(std::vector{unknown}, source);
    } catch (const ActionFindingsException& exception) {
        return blamesOf(exception.findings(), source);
    } catch (const CompileFindingsException& exception) {
        return blamesOf(exception.findings(), source);
    } catch (const std::exception& exception) {
        return {{exception.what(), std::nullopt, std::nullopt}};
    }
}

/// The findings about one definition, each put in its place.
class Report
{
public:
    explicit Report(std::string_view definition) : m_definition(definition), m_lines(definition) {}

    void addSyntaxError(const JsonReadException& failure, std::istream& stream)
    {
        add({JsonLineNumberReadException(failure, stream).what(), std::nullopt, std::nullopt},
            Severity::error, {},
            {static_cast<std::size_t>(failure.position()),
             failure.position() < m_definition.size() ? 1u : 0u});
    }

    /// A failure of the value at a path, or for want of it.
    void addAt(const JsonPath& path, const Blame& blame) { add(blame, Severity::error, path, rangeOf(path)); }

    void addInText(const ActionText& text, const std::vector<Blame>& blames, Severity severity)
    {
        const JsonStringOffsets offsets(m_definition, locator().locate(text.path).value);
        const auto offsetOf = [&](std::uint64_t position) {
            const std::uint64_t own = position > text.wrapped ? position - text.wrapped : 0;
            return offsets.offsetOf(std::min<std::size_t>(own, text.length));
        };
        for (const Blame& blame : blames) {
            const SourceSpan span = blame.span.value_or(SourceSpan{0, text.length});
            const std::size_t start = offsetOf(span.position);
            const std::size_t end = span.position == positionUnknown ? start : offsetOf(span.end());
            add(blame, severity, text.path, {start, end - start});
        }
    }

    std::vector<Finding> take()
    {
        std::stable_sort(m_findings.begin(), m_findings.end(), [](const Finding& left, const Finding& right) {
            return left.offset < right.offset;
        });
        return std::move(m_findings);
    }

private:
    /// Made for the first finding: most definitions have none.
    const JsonLocator& locator()
    {
        if (!m_locator)
            m_locator.emplace(m_definition);
        return *m_locator;
    }

    /// What to point at: a simple value itself, but the key of a large one and of one that lacks something.
    JsonRange rangeOf(const JsonPath& path)
    {
        const JsonLocation location = locator().locate(path);
        const char first = location.value.length > 0 ? m_definition[location.value.offset] : '\0';
        const bool isSimple = first != '{' && first != '[';
        if (location.matched == path.size() && isSimple)
            return location.value;
        return location.key.value_or(
            JsonRange{location.value.offset, std::min<std::size_t>(location.value.length, 1)});
    }

    void add(const Blame& blame, Severity severity, const JsonPath& path, const JsonRange& range)
    {
        const LineMap::Place place = m_lines.placeOf(range.offset);
        m_findings.push_back({.severity = severity,
                              .code = blame.code,
                              .text = blame.text,
                              .path = definitionPathText(path),
                              .line = place.line,
                              .column = place.column,
                              .offset = range.offset,
                              .length = range.length,
                              .sourceLine = m_lines.line(place.line)});
    }

    std::string_view m_definition;
    LineMap m_lines;
    std::optional<JsonLocator> m_locator;
    std::vector<Finding> m_findings;
};

void addWarnings(const CompileRecord& record, Report& report)
{
    for (const auto& [text, warnings] : record.warnings()) {
        std::vector<Blame> blames;
        for (const Diagnostic& warning : warnings) {
            const SourceSpan span{warning.position, warning.length};
            blames.push_back({warningText(warning.code, blamedText(text.source, span)), warning.code, span});
        }
        report.addInText(text, blames, Severity::warning);
    }
}

void addFailure(const CompileRecord& record, const std::exception_ptr& failure, Report& report)
{
    if (const std::optional<ActionText>& text = record.failedText()) {
        report.addInText(*text, blamesOf(failure, text->source), Severity::error);
        return;
    }
    for (const Blame& blame : blamesOf(failure, {}))
        report.addAt(record.failure().value_or(JsonPath()), blame);
}

void checkDevice(const JsonObject& definition, Report& report)
{
    DDStateChartCompiler compiler(DDCodeBuilderFactory::createCodeBuilder());
    try {
        compiler.compile(definition);
    } catch (const std::exception&) {
        addFailure(std::as_const(compiler).record(), std::current_exception(), report);
    }
    addWarnings(std::as_const(compiler).record(), report);
}

} // namespace

std::vector<Finding> checkDefinition(std::string_view definition)
{
    Report report(definition);
    std::istringstream stream{std::string(definition)};
    try {
        const JsonDocument document = readDocument(stream);
        checkDevice(asObject(document), report);
    } catch (const JsonReadException& failure) {
        report.addSyntaxError(failure, stream);
    } catch (const JsonException& failure) {
        report.addAt({}, {failure.what(), std::nullopt, std::nullopt});
    }
    return report.take();
}
