#include "actionlanguage/functions/functionlibrary.h"

#include "actionlanguage/runtime/executioninterface.h"
#include "statechart/text/format.h"

namespace {

using Interface = AbstractExecutionInterface;

template <class T>
FunctionOverload printOverload()
{
    return functionOverload([](Interface& executionInterface, const T& value) {
        executionInterface.print(formatText("{}", value));
    });
}

template <class T>
FunctionOverload formatOverload()
{
    return functionOverload(
        [](Interface&, const std::string& format, const T& value) { return formatText(format, value); });
}

/// One overload for each type that has a text, in the order in which they are declared.
template <FunctionOverload (*... overload)()>
FunctionOverloads overloads()
{
    FunctionOverloads list;
    (list.push_back(overload()), ...);
    return list;
}

} // namespace

void appendTextFunctions(FunctionRules& rules)
{
    rules.push_back(std::make_unique<FunctionRule>(
        "print",
        overloads<printOverload<std::string>, printOverload<std::int32_t>, printOverload<double>,
                  printOverload<bool>, printOverload<std::int64_t>, printOverload<std::uint64_t>>()));
    rules.push_back(std::make_unique<FunctionRule>(
        "format",
        overloads<formatOverload<std::string>, formatOverload<std::int32_t>, formatOverload<double>,
                  formatOverload<bool>, formatOverload<std::int64_t>, formatOverload<std::uint64_t>>()));
}
