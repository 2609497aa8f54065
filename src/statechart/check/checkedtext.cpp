#include "statechart/check/checkedtext.h"

#include <algorithm>
#include <string>
#include <variant>

namespace {

using Use = CheckedText::Use;

/// Told by the innermost key of the path: elements of lists stand under theirs.
Use useOf(const JsonPath& path)
{
    const auto key = std::find_if(path.rbegin(), path.rend(), [](const JsonPathSegment& segment) {
        return std::holds_alternative<std::string>(segment);
    });
    if (key == path.rend())
        return Use::statements;
    const std::string& name = std::get<std::string>(*key);
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
        const Use use = useOf(compiled.text.path);
        texts.push_back({&compiled.text, use, treeOf(compiled, use)});
    }
    return texts;
}
