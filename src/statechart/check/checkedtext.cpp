#include "statechart/check/checkedtext.h"

#include <string>
#include <variant>

namespace {

using Use = CheckedText::Use;

/// Told by the innermost key of the place: elements of lists stand under theirs.
Use useOf(JsonPlace place)
{
    while (!place.isTop() && !std::holds_alternative<std::string>(place.segment()))
        place = place.outer();
    if (place.isTop())
        return Use::statements;
    const std::string& name = std::get<std::string>(place.segment());
    if (name == "conditions")
        return Use::condition;
    return name == "wakeTime" || name == "wakeTimeCalc" ? Use::time : Use::statements;
}

SourceNode treeOf(const CompileRecord::CompiledText& compiled, Use use)
{
    switch (use) {
    case Use::condition:
        return sourceTreeOfExpression(compiled.form, DataType::boolean, compiled.text.source);
    case Use::time:
        return sourceTreeOfExpression(compiled.form, DataType::real, compiled.text.source);
    case Use::statements:
        break;
    }
    return sourceTreeOfStatements(compiled.form, compiled.text.source);
}

} // namespace

std::vector<CheckedText> checkedTextsOf(const CompileRecord& record)
{
    std::vector<CheckedText> texts;
    texts.reserve(record.texts().size());
    for (const CompileRecord::CompiledText& compiled : record.texts()) {
        const Use use = useOf(compiled.text.place);
        texts.push_back({&compiled.text, use, treeOf(compiled, use)});
    }
    return texts;
}
