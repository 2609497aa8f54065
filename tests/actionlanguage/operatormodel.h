#ifndef OPERATORMODEL_H
#define OPERATORMODEL_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

/// An independent reading of the language's operators, computed natively on real C++ types; what the
/// engine links is compared with it.
///
/// Types are letters: b bool, c char, d double, i int, l int64_t, s string, u uint64_t, v void.
using ModelValue = std::variant<bool, char, double, std::int32_t, std::int64_t, std::string, std::uint64_t>;

inline constexpr std::string_view typeLetters = "bcdilsuv";
/// The letters of the types that a variable can have.
inline constexpr std::string_view valueLetters = "bcdilsu";

std::string spellingOf(char letter);
char letterOf(const ModelValue& value);

/// The operators of each kind, in the order of their precedence.
const std::vector<std::string>& binaryOperators();
const std::vector<std::string>& assignmentOperators();
const std::vector<std::string>& unaryOperators();

/// The letter of the result, or nothing when the language has no such operator.
std::optional<char> binaryResult(std::string_view op, char left, char right);
bool hasAssignment(std::string_view op, char left, char right);
bool hasUnary(std::string_view op, char operand);
bool hasIncDec(char operand);

/// What C++ gives for operands that the tables allow; signed sums wrap and shift counts are masked. Nothing
/// where the processor would fault.
std::optional<ModelValue> applyBinary(std::string_view op, const ModelValue& left, const ModelValue& right);
/// The new value of the left side.
std::optional<ModelValue> applyAssignment(std::string_view op, const ModelValue& left,
                                          const ModelValue& right);
ModelValue applyUnary(std::string_view op, const ModelValue& operand);
/// The value that "++" (or "--") leaves in a variable.
ModelValue applyIncDec(std::string_view op, const ModelValue& operand);

/// The text that the language prints for a value. A NaN is "nan" whatever its sign; a char is shown as its
/// number.
std::string printedText(const ModelValue& value);

/// Statements that declare a variable and give it a value. There are no literals of 64 bits, no negative
/// ones, no infinities: those are computed.
std::string declarationOf(const std::string& name, const ModelValue& value);

/// Values of a type that are worth a test: limits, signs, zero, and some in between.
std::vector<ModelValue> interestingValues(char letter);

#endif
