#include "action/runbothways.h"
#include "actionlanguage/tokens/compilationexception.h"
#include "statechart/ddcodebuilderfactory.h"
#include "statechart/json/jsonreader.h"
#include "statechart/json/jsonwriter.h"

#include <cstdlib>
#include <sstream>

namespace {

const CodeBuilder& builder()
{
    static const std::unique_ptr<CodeBuilder> shared = DDCodeBuilderFactory::createCodeBuilder();
    return *shared;
}

/// Every finding must have words, and a place in the text.
void word(const CompilationException& failure, std::string_view text)
{
    static_cast<void>(failure.message(text));
}

/// What compiles must link, and run.
template <class Compile, class Link>
void compileAndRun(std::string_view text, Compile compile, Link link, void (*run)(JsonValue))
{
    try {
        const CompileResult result = (builder().*compile)(text);
        for (const Diagnostic& finding : result.findings())
            static_cast<void>(errorText(finding.code, blamedText(text, {finding.position, finding.length})));
        if (result.hasValue()) {
            (builder().*link)(result.value());
            run(result.value());
        }
    } catch (const CompilationException& failure) {
        word(failure, text);
    } catch (const LiteralConversionException&) {
    } catch (const TokeniserAllocationFailure&) {
    } catch (const JsonTypeException&) {
        // a "for" that leaves out a clause
    }
}

/// Any JSON document may be given to the linker: it links and then runs, or says why not.
void runForeign(const std::string& text)
{
    try {
        std::istringstream input(text);
        const JsonDocument document = readDocument(input);
        builder().linkStatements(document.value());
        runStatementsBothWays(document.value());
    } catch (const std::runtime_error&) {
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    compileAndRun(text, &CodeBuilder::compileStatements, &CodeBuilder::linkStatements, runStatementsBothWays);
    compileAndRun(text, &CodeBuilder::compileCondition, &CodeBuilder::linkCondition, evaluateBothWays);
    compileAndRun(text, &CodeBuilder::compileExpression, &CodeBuilder::linkExpression, evaluateBothWays);
    runForeign(text);
    return 0;
}
