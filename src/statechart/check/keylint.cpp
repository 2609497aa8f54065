#include "statechart/check/lints.h"
#include "statechart/json/jsonkeys.h"
#include "statechart/text/format.h"

void lintKeys(const CheckedDefinition& checked, FindingReport& report)
{
    forEachUnwritableKey(checked.definition, [&report](const JsonPath& path) {
        report.addAtKey({FindingKind::unwritableKey,
                         formatText("'{}': a key with a quote or a backslash cannot be read back once it "
                                    "is written",
                                    std::get<std::string>(path.back()))},
                        path);
        return true;
    });
}
