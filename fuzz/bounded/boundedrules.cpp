#include "bounded/boundedrules.h"

#include "bounded/anyactor.h"
#include "statechart/devicefunctions.h"
#include "statechart/text/format.h"

#include <algorithm>
#include <limits>

namespace {

/// The nearest value to divide by that cannot fault.
template <class T>
T divisor(T value)
{
    return value == 0 || value == static_cast<T>(-1) ? T{1} : value;
}

/// A width or a precision is a number in the format text, and a value may stand there more than once.
std::string boundedFormat(const std::string& format, const auto& value)
{
    std::size_t digits = 0;
    for (const char byte : format) {
        digits = byte >= '0' && byte <= '9' ? digits + 1 : 0;
        if (digits > 3)
            throw BoundReached("a number in a format text");
    }
    if (format.size() > 1000)
        throw BoundReached("the length of a format text");
    if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::string>)
        if (value.size() > 1000)
            throw BoundReached("the length of a formatted text");
    if constexpr (std::is_same_v<std::decay_t<decltype(value)>, double>)
        if (value != value) // the sign of a NaN is nobody's promise
            return formatText(format, std::numeric_limits<double>::quiet_NaN());
    return formatText(format, value);
}

template <class T>
FunctionOverload format()
{
    return functionOverload([](AbstractExecutionInterface&, const std::string& text, const T& value) {
        return boundedFormat(text, value);
    });
}

FunctionRules functionRules()
{
    FunctionRules rules;
    rules.push_back(std::make_unique<FunctionRule>(
        "countRound", functionOverloads([](AnyActor& actor) { actor.countRound(); })));
    rules.push_back(std::make_unique<FunctionRule>(
        "divisor",
        functionOverloads([](AbstractExecutionInterface&, std::int32_t value) { return divisor(value); },
                          [](AbstractExecutionInterface&, std::int64_t value) { return divisor(value); },
                          [](AbstractExecutionInterface&, std::uint64_t value) { return divisor(value); })));
    FunctionOverloads formats;
    formats.push_back(format<std::string>());
    formats.push_back(format<std::int32_t>());
    formats.push_back(format<double>());
    formats.push_back(format<bool>());
    formats.push_back(format<std::int64_t>());
    formats.push_back(format<std::uint64_t>());
    rules.push_back(std::make_unique<FunctionRule>("format", std::move(formats)));
    std::ranges::move(constructDeviceFunctionRules(), std::back_inserter(rules));
    return rules;
}

} // namespace

const BuildRules& boundedRules()
{
    static const BuildRules rules(functionRules());
    return rules;
}
