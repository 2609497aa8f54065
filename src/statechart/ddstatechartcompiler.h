#ifndef DDSTATECHARTCOMPILER_H
#define DDSTATECHARTCOMPILER_H

#include "halvwidgetsexport.h"
#include "statechart/statechartcompiler.h"

/// Adds to a compiled chart what makes it a digital device: "inputBuses", "inputPins", "outputBuses",
/// "outputPins", "variables", "parameters", and the wake time of transitions.
///
/// @throws what StateChartCompiler raises, and with no path: std::runtime_error for what is wrong with the
/// device's own sections, and whatever the action language raises for a wake time (CompilationException,
/// CompileFindingsException, TokeniserAllocationFailure, LiteralConversionException).
class DDStateChartCompiler : public StateChartCompiler
{
public:
    using StateChartCompiler::StateChartCompiler;

    JsonObject compile(const JsonObject& definition) override;
    JsonObject compileTransition(const JsonObject& definition, const std::string& source) override;

private:
    void compileTerminals(const JsonObject& definition, JsonObject& compiled);
    void compileParameters(const JsonObject& definition, JsonObject& parameters);
    void compileVariables(const JsonObject& definition, JsonObject& variables);
};

/// The compiled device of a definition.
HALVWIDGETS_EXPORT JsonObject compileDeviceStateChart(const JsonObject& definition,
                                                      std::shared_ptr<CodeBuilder> builder);

#endif
