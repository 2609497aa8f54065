#include "operatormodel.h"

#include <charconv>
#include <cmath>
#include <stdexcept>
#include <type_traits>

namespace {

template <class T>
inline constexpr bool isNumber = std::is_same_v<T, double> || std::is_same_v<T, std::int32_t> ||
                                 std::is_same_v<T, std::int64_t> || std::is_same_v<T, std::uint64_t>;

template <class T>
inline constexpr bool isInteger = isNumber<T> && !std::is_same_v<T, double>;

/// Signed sums wrap: computed unsigned, where that is defined.
template <class T>
T wrapped(std::string_view op, T left, T right)
{
    using Unsigned = std::make_unsigned_t<T>;
    const auto a = static_cast<Unsigned>(left);
    const auto b = static_cast<Unsigned>(right);
    switch (op.front()) {
    case '+':
        return static_cast<T>(a + b);
    case '-':
        return static_cast<T>(a - b);
    default:
        return static_cast<T>(a * b);
    }
}

template <class T>
bool faults(T left, T right)
{
    if (right == 0)
        return true;
    if constexpr (std::is_signed_v<T>)
        return left == std::numeric_limits<T>::min() && right == T(-1);
    else
        return false;
}

template <class T>
T shifted(std::string_view op, T left, std::uint64_t count)
{
    constexpr std::uint64_t mask = sizeof(T) * 8 - 1;
    const auto places = static_cast<int>(count & mask);
    if (op == ">>")
        return static_cast<T>(left >> places);
    return static_cast<T>(static_cast<std::make_unsigned_t<T>>(left) << places);
}

template <class T>
std::optional<ModelValue> arithmetic(std::string_view op, T left, T right)
{
    if (op == "+" || op == "-" || op == "*") {
        if constexpr (isInteger<T>)
            return wrapped(op, left, right);
        else
            return op == "+" ? left + right : op == "-" ? left - right : left * right;
    }
    if constexpr (isInteger<T>) {
        if (op == "/" || op == "%") {
            if (faults(left, right))
                return std::nullopt;
            return op == "/" ? static_cast<T>(left / right) : static_cast<T>(left % right);
        }
        if (op == "&")
            return static_cast<T>(left & right);
        if (op == "^")
            return static_cast<T>(left ^ right);
        if (op == "|")
            return static_cast<T>(left | right);
    } else if (op == "/") {
        return left / right;
    }
    return std::nullopt;
}

template <class T>
std::optional<bool> compared(std::string_view op, T left, T right)
{
    if (op == "<")
        return left < right;
    if (op == "<=")
        return left <= right;
    if (op == ">")
        return left > right;
    if (op == ">=")
        return left >= right;
    if (op == "==")
        return left == right;
    if (op == "!=")
        return left != right;
    return std::nullopt;
}

template <class L, class R>
std::optional<ModelValue> binary(std::string_view op, const L& left, const R& right)
{
    if constexpr (std::is_same_v<L, bool> && std::is_same_v<R, bool>) {
        if (op == "&&")
            return left && right;
        if (op == "||")
            return left || right;
        return compared(op, left, right);
    } else if constexpr (std::is_same_v<L, char> && std::is_same_v<R, char>) {
        return compared(op, static_cast<signed char>(left), static_cast<signed char>(right));
    } else if constexpr (isNumber<L> && isNumber<R>) {
        if constexpr (isInteger<L> && isInteger<R>)
            if (op == "<<" || op == ">>")
                return shifted(op, left, static_cast<std::uint64_t>(right));
        using Common = std::common_type_t<L, R>;
        const auto a = static_cast<Common>(left);
        const auto b = static_cast<Common>(right);
        if (const auto result = compared(op, a, b))
            return *result;
        return arithmetic(op, a, b);
    }
    throw std::logic_error("no such operator: " + std::string(op));
}

/// What a variable of type L becomes when it is given a value.
template <class L, class R>
ModelValue converted(const R& value)
{
    if constexpr (std::is_same_v<L, bool> && isNumber<R>)
        return value != R(0);
    else if constexpr (std::is_same_v<L, R>)
        return value;
    else if constexpr (isNumber<L> && isNumber<R>)
        return static_cast<L>(value);
    else
        throw std::logic_error("no such assignment");
}

std::string charactersOf(auto value)
{
    char text[64];
    return {text, std::to_chars(text, text + sizeof text, value).ptr};
}

/// Statements that build a number of 64 bits from parts that fit an int literal.
std::string buildBits(const std::string& name, std::uint64_t bits)
{
    constexpr std::uint64_t part = 0x7fffffff;
    return name + " = " + charactersOf(bits >> 62) + "; " + name + " <<= 31; " + name +
           " |= " + charactersOf((bits >> 31) & part) + "; " + name + " <<= 31; " + name +
           " |= " + charactersOf(bits & part) + "; ";
}

std::string doubleExpression(double value)
{
    if (std::isnan(value))
        return "0.0 / 0.0";
    if (std::isinf(value))
        return value < 0 ? "-1.0 / 0.0" : "1.0 / 0.0";
    char text[64];
    std::string digits(text, std::to_chars(text, text + sizeof text, std::fabs(value)).ptr);
    if (const auto sign = digits.find("e+"); sign != std::string::npos)
        digits.erase(sign + 1, 1);
    if (digits.find_first_of(".e") == std::string::npos)
        digits += ".0";
    return (std::signbit(value) ? "-" : "") + digits;
}

} // namespace

std::string spellingOf(char letter)
{
    switch (letter) {
    case 'b':
        return "bool";
    case 'c':
        return "char";
    case 'd':
        return "double";
    case 'i':
        return "int";
    case 'l':
        return "int64_t";
    case 's':
        return "string";
    case 'u':
        return "uint64_t";
    case 'v':
        return "void";
    default:
        throw std::logic_error("no such type");
    }
}

char letterOf(const ModelValue& value)
{
    return valueLetters[value.index()];
}

std::optional<ModelValue> applyBinary(std::string_view op, const ModelValue& left, const ModelValue& right)
{
    return std::visit([&](const auto& l, const auto& r) { return binary(op, l, r); }, left, right);
}

std::optional<ModelValue> applyAssignment(std::string_view op, const ModelValue& left,
                                          const ModelValue& right)
{
    std::optional<ModelValue> value = right;
    if (op != "=")
        value = applyBinary(op.substr(0, op.size() - 1), left, right);
    if (!value)
        return std::nullopt;
    return std::visit([&]<class L, class R>(const L&, const R& result) { return converted<L>(result); }, left,
                      *value);
}

ModelValue applyUnary(std::string_view op, const ModelValue& operand)
{
    return std::visit(
        [&]<class T>(const T& value) -> ModelValue {
            if constexpr (std::is_same_v<T, bool>) {
                if (op == "!")
                    return !value;
            } else if constexpr (isNumber<T>) {
                if (op == "+")
                    return value;
                if constexpr (isInteger<T>) {
                    if (op == "-")
                        return wrapped<T>("-", 0, value);
                    if (op == "~")
                        return static_cast<T>(~value);
                } else if (op == "-") {
                    return -value;
                }
            }
            throw std::logic_error("no such operator");
        },
        operand);
}

ModelValue applyIncDec(std::string_view op, const ModelValue& operand)
{
    return std::visit(
        [&]<class T>(const T& value) -> ModelValue {
            if constexpr (isInteger<T>)
                return wrapped<T>(op, value, 1);
            throw std::logic_error("no such operator");
        },
        operand);
}

std::string printedText(const ModelValue& value)
{
    return std::visit(
        []<class T>(const T& content) -> std::string {
            if constexpr (std::is_same_v<T, bool>)
                return content ? "true" : "false";
            else if constexpr (std::is_same_v<T, std::string>)
                return content;
            else if constexpr (std::is_same_v<T, char>)
                return std::to_string(static_cast<signed char>(content));
            else if constexpr (std::is_same_v<T, double>)
                return std::isnan(content) ? "nan" : charactersOf(content);
            else
                return charactersOf(content);
        },
        value);
}

std::string declarationOf(const std::string& name, const ModelValue& value)
{
    const std::string declaration = spellingOf(letterOf(value)) + " " + name;
    switch (letterOf(value)) {
    case 'b':
        return declaration + (std::get<bool>(value) ? " = true; " : " = false; ");
    case 'c':
        return declaration + " = '" + std::string(1, std::get<char>(value)) + "'; ";
    case 'd':
        return declaration + " = " + doubleExpression(std::get<double>(value)) + "; ";
    case 'i': {
        const auto number = std::get<std::int32_t>(value);
        if (number < 0)
            return declaration + " = -" + charactersOf(-(number + 1)) + " - 1; ";
        return declaration + " = " + charactersOf(number) + "; ";
    }
    case 'l':
        return declaration + "; " +
               buildBits(name, static_cast<std::uint64_t>(std::get<std::int64_t>(value)));
    case 's':
        return declaration + " = \"" + std::get<std::string>(value) + "\"; ";
    default:
        return declaration + "; " + buildBits(name, std::get<std::uint64_t>(value));
    }
}
