#include "actionlanguage/functions/functionlibrary.h"
#include "actionlanguage/functions/loggamma.h"

#include "actionlanguage/runtime/executioninterface.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace {

using Interface = AbstractExecutionInterface;

template <auto function>
FunctionOverloads unary()
{
    return functionOverloads([](Interface&, double x) { return function(x); });
}

template <auto function>
FunctionOverloads binary()
{
    return functionOverloads([](Interface&, double x, double y) { return function(x, y); });
}

/// The same choice between two values of one type, for each of the number types.
template <auto function>
FunctionOverloads choice()
{
    return functionOverloads([](Interface&, std::int32_t x, std::int32_t y) { return function(x, y); },
                             [](Interface&, double x, double y) { return function(x, y); },
                             [](Interface&, std::int64_t x, std::int64_t y) { return function(x, y); },
                             [](Interface&, std::uint64_t x, std::uint64_t y) { return function(x, y); });
}

struct MathFunction
{
    std::string_view name;
    FunctionOverloads (*overloads)();
};

/// Each is the standard function of that name.
constexpr auto table = std::to_array<MathFunction>({
    {"abs", unary<[](double x) { return std::abs(x); }>},
    {"acos", unary<[](double x) { return std::acos(x); }>},
    {"acosh", unary<[](double x) { return std::acosh(x); }>},
    {"asin", unary<[](double x) { return std::asin(x); }>},
    {"asinh", unary<[](double x) { return std::asinh(x); }>},
    {"atan", unary<[](double x) { return std::atan(x); }>},
    {"atan2", binary<[](double x, double y) { return std::atan2(x, y); }>},
    {"atanh", unary<[](double x) { return std::atanh(x); }>},
    {"cbrt", unary<[](double x) { return std::cbrt(x); }>},
    {"ceil", unary<[](double x) { return std::ceil(x); }>},
    {"cos", unary<[](double x) { return std::cos(x); }>},
    {"cosh", unary<[](double x) { return std::cosh(x); }>},
    {"erf", unary<[](double x) { return std::erf(x); }>},
    {"erfc", unary<[](double x) { return std::erfc(x); }>},
    {"exp", unary<[](double x) { return std::exp(x); }>},
    {"exp2", unary<[](double x) { return std::exp2(x); }>},
    {"floor", unary<[](double x) { return std::floor(x); }>},
    {"lgamma", unary<[](double x) { return logGamma(x); }>},
    {"log", unary<[](double x) { return std::log(x); }>},
    {"log10", unary<[](double x) { return std::log10(x); }>},
    {"log2", unary<[](double x) { return std::log2(x); }>},
    {"pow", binary<[](double x, double y) { return std::pow(x, y); }>},
    {"round", unary<[](double x) { return std::round(x); }>},
    {"sin", unary<[](double x) { return std::sin(x); }>},
    {"sinh", unary<[](double x) { return std::sinh(x); }>},
    {"sqrt", unary<[](double x) { return std::sqrt(x); }>},
    {"tan", unary<[](double x) { return std::tan(x); }>},
    {"tanh", unary<[](double x) { return std::tanh(x); }>},
    {"tgamma", unary<[](double x) { return std::tgamma(x); }>},
    {"trunc", unary<[](double x) { return std::trunc(x); }>},
    {"max", choice<[](auto x, auto y) { return std::max(x, y); }>},
    {"min", choice<[](auto x, auto y) { return std::min(x, y); }>},
});

} // namespace

void appendMathFunctions(FunctionRules& rules)
{
    for (const MathFunction& function : table)
        rules.push_back(std::make_unique<FunctionRule>(function.name, function.overloads()));
}
