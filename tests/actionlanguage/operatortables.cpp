// The tables of the language's operators, and the values that are tried on them.

#include "operatormodel.h"

#include <limits>
#include <span>
#include <stdexcept>

namespace {

struct OperatorRow
{
    std::string_view operators; // separated by blanks
    std::string_view operands;  // groups of letters: left, right, result
};

constexpr OperatorRow binaryRows[] = {
    {"* / + -", "iii idd ill iuu did ddd dld dud lil ldd lll luu uiu udd ulu uuu"},
    {"%", "iii lll lil uuu"},
    {"<< >>", "iii lll uuu"},
    {"& ^ |", "iii lil lll uiu uuu"},
    {"&& ||", "bbb"},
    {"<", "iib idb ilb iub dib ddb dlb dub lib ldb llb udb uub ccb"},
    {"<= > >=", "iib idb ilb iub dib ddb dlb dub lib ldb llb uib udb uub ccb"},
    {"== !=", "iib idb ilb iub dib ddb dlb dub lib ldb llb lub uib udb ulb uub ccb bbb"},
};

constexpr OperatorRow assignmentRows[] = {
    {"=", "bb bi bd cc dd di ii ss ll li uu ui"},
    {"+= -= *= /=", "ii di dd dl du ll li ul ui"},
    {"%= <<= >>= &= ^= |=", "ii li ll ui uu"},
};

constexpr OperatorRow unaryRows[] = {
    {"+", "i d l u"},
    {"-", "i d l"},
    {"!", "b"},
    {"~", "i"},
};

constexpr std::string_view incDecOperands = "ilu";

std::vector<std::string> words(std::string_view text)
{
    std::vector<std::string> result;
    while (!text.empty()) {
        const auto end = text.find(' ');
        if (end != 0)
            result.emplace_back(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    }
    return result;
}

/// The group of a row that begins with these letters, for an operator.
std::optional<std::string> findGroup(std::span<const OperatorRow> rows, std::string_view op,
                                     const std::string& letters)
{
    for (const OperatorRow& row : rows)
        for (const std::string& rowOperator : words(row.operators))
            if (rowOperator == op)
                for (std::string& group : words(row.operands))
                    if (group.starts_with(letters))
                        return std::move(group);
    return std::nullopt;
}

template <class T>
std::vector<ModelValue> valuesOf(std::initializer_list<T> values)
{
    return std::vector<ModelValue>(values.begin(), values.end());
}

} // namespace

const std::vector<std::string>& binaryOperators()
{
    static const auto operators = words("* / % + - << >> < <= > >= == != & ^ | && ||");
    return operators;
}

const std::vector<std::string>& assignmentOperators()
{
    static const auto operators = words("= += -= *= /= %= <<= >>= &= ^= |=");
    return operators;
}

const std::vector<std::string>& unaryOperators()
{
    static const auto operators = words("+ - ! ~");
    return operators;
}

std::optional<char> binaryResult(std::string_view op, char left, char right)
{
    const auto group = findGroup(binaryRows, op, {left, right});
    return group ? std::optional(group->back()) : std::nullopt;
}

bool hasAssignment(std::string_view op, char left, char right)
{
    return findGroup(assignmentRows, op, {left, right}).has_value();
}

bool hasUnary(std::string_view op, char operand)
{
    return findGroup(unaryRows, op, {operand}).has_value();
}

bool hasIncDec(char operand)
{
    return incDecOperands.find(operand) != std::string_view::npos;
}

std::vector<ModelValue> interestingValues(char letter)
{
    using Int = std::numeric_limits<std::int32_t>;
    using Int64 = std::numeric_limits<std::int64_t>;
    using Unsigned64 = std::numeric_limits<std::uint64_t>;
    using Double = std::numeric_limits<double>;
    switch (letter) {
    case 'b':
        return valuesOf<bool>({false, true});
    case 'c':
        return valuesOf<char>({'a', 'b', ' ', '\0', '\x7f', '\x80', '\xff'});
    case 'd':
        return valuesOf<double>({0.0, -0.0, 1.0, -2.5, 0.1, 1e18, 1.8446744073709552e19, Double::max(),
                                 Double::infinity(), -Double::infinity(), Double::quiet_NaN()});
    case 'i':
        return valuesOf<std::int32_t>({0, 1, -1, 7, -13, 33, 65535, Int::max(), Int::min()});
    case 'l':
        return valuesOf<std::int64_t>(
            {0, 1, -1, 7, -13, 65, 4294967296, -3000000000, 9007199254740993, Int64::max(), Int64::min()});
    case 's':
        return valuesOf<std::string>({"", "text", "other text"});
    case 'u':
        return valuesOf<std::uint64_t>({0, 1, 7, 67, 4294967295, 9007199254740993, 9223372036854775808u,
                                        Unsigned64::max() - 12, Unsigned64::max()});
    default:
        throw std::logic_error("no values of this type");
    }
}
