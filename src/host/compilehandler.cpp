#include "host/hostregistrations.h"
#include "host/stringresults.h"
#include "statechart/package/compilecommand.h"

void compileDigitalDeviceStateChartHandler(ScriptArguments& arguments, ScriptResults& results,
                                           ScriptSharedBlock& block)
{
    const ScriptSharedBlockHold hold(block);
    storeStrings(results, compileDigitalDeviceStateChart(arguments.text(0), arguments.text(1)));
    results.finish();
}
