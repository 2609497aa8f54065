#ifndef LINTS_H
#define LINTS_H

#include "statechart/check/chartmodel.h"
#include "statechart/check/findingreport.h"

class ConstantFolding;

/// A definition as the lints see it.
struct CheckedDefinition
{
    const JsonObject& definition;
    const std::vector<CheckedText>& texts;
    const std::vector<CompileRecord::Failure>& failures;
    const ChartModel& chart;
    const ConstantFolding& folding;
};

// Each finds the kinds of one family. None of them raises what is the definition's fault. To add one, declare
// it here and call it in definitioncheck.cpp.

void lintStates(const CheckedDefinition& checked, FindingReport& report);
void lintTransitions(const CheckedDefinition& checked, FindingReport& report);
void lintEndlessTransitions(const CheckedDefinition& checked, FindingReport& report);
void lintNames(const CheckedDefinition& checked, FindingReport& report);
void lintExpressions(const CheckedDefinition& checked, FindingReport& report);

#endif
