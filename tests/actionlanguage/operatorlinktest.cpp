// Compiled forms of every operator with every pair of types, as a text that this compiler did not write
// could name them: the linker has the same tables, and looks at what an operand really is.

#include "languagetester.h"
#include "operatormodel.h"
#include "support/concatenated.h"
#include "support/jsontext.h"

namespace {

std::string inQuotes(std::string_view text)
{
    return concatenated({"\"", text, "\""});
}

std::string typeInQuotes(char letter)
{
    return inQuotes(spellingOf(letter));
}

/// One variable of each type, named by its letter.
std::string idOf(char letter)
{
    return std::string("var_") + letter;
}

std::string variablesOfAllTypes()
{
    std::string members;
    for (const char letter : valueLetters)
        members +=
            concatenated({members.empty() ? "" : ", ", inQuotes(idOf(letter)), ": ", typeInQuotes(letter)});
    return concatenated({"{", members, "}"});
}

/// An expression of a type.
std::string operand(char letter)
{
    if (letter == 'v')
        return R"({"rule": "call", "func": "print", "argTypes": ["int"], "args": [1]})";
    return concatenated(
        {R"({"rule": "var", "id": )", inQuotes(idOf(letter)), R"(, "type": )", typeInQuotes(letter), "}"});
}

std::string typedOperand(char named, char real)
{
    return concatenated({R"({"type": )", typeInQuotes(named), R"(, "expr": )", operand(real), "}"});
}

std::string target(char named, char real)
{
    return concatenated({R"({"type": )", typeInQuotes(named), R"(, "id": )", inQuotes(idOf(real)), "}"});
}

std::string binary(const std::string& op, const std::string& left, const std::string& right)
{
    return concatenated(
        {R"({"rule": "binop", "op": )", inQuotes(op), R"(, "lhs": )", left, R"(, "rhs": )", right, "}"});
}

std::string assignment(const std::string& op, char left, char right, char realLeft, char realRight)
{
    return concatenated({R"({"rule": "assign", "op": )", inQuotes(op), R"(, "ltype": )", typeInQuotes(left),
                         R"(, "rtype": )", typeInQuotes(right), R"(, "lhs": )", target(left, realLeft),
                         R"(, "rhs": )", operand(realRight), "}"});
}

std::string unary(const std::string& op, char named, char real)
{
    return concatenated({R"({"rule": "unop", "op": )", inQuotes(op), R"(, "type": )", typeInQuotes(named),
                         R"(, "expr": )", operand(real), "}"});
}

std::string incDec(const std::string& rule, const std::string& op, char named, char real)
{
    return concatenated({R"({"rule": )", inQuotes(rule), R"(, "op": )", inQuotes(op), R"(, "type": )",
                         typeInQuotes(named), R"(, "expr": )", target(named, real), "}"});
}

/// How the link of one expression statement ends: "linked", or what() of the failure.
std::string linkOutcome(const std::string& expression, char type)
{
    const JsonValue form = jsonOf(
        concatenated({R"({"statements": [{"rule": "expr", "type": )", typeInQuotes(type), R"(, "expr": )",
                      expression, R"(}], "variables": )", variablesOfAllTypes(), "}"}));
    try {
        (void)languageBuilder().linkStatements(form);
        return "linked";
    } catch (const std::runtime_error& failure) {
        return failure.what();
    }
}

void expectLink(const std::string& expression, char type, const std::string& outcome)
{
    EXPECT_EQ(linkOutcome(expression, type), outcome) << expression;
}

/// The letters but one.
std::string others(std::string_view letters, char letter)
{
    std::string result(letters);
    std::erase(result, letter);
    return result;
}

TEST(OperatorLink, BinaryOperatorsLinkForThePairsOfTheTableAlone)
{
    int linked = 0;
    for (const std::string& op : binaryOperators())
        for (const char left : typeLetters)
            for (const char right : typeLetters) {
                const auto result = binaryResult(op, left, right);
                linked += result.has_value();
                expectLink(binary(op, typedOperand(left, left), typedOperand(right, right)),
                           result.value_or('i'), result ? "linked" : "cannot link operator");
            }
    EXPECT_EQ(linked, 186);
}

TEST(OperatorLink, BinaryOperatorsRefuseOperandsThatAreNotWhatTheTextNames)
{
    for (const std::string& op : binaryOperators())
        for (const char left : typeLetters)
            for (const char right : typeLetters) {
                const auto result = binaryResult(op, left, right);
                if (!result)
                    continue;
                for (const char real : others(typeLetters, left))
                    expectLink(binary(op, typedOperand(left, real), typedOperand(right, right)), *result,
                               "invalid executable link");
                for (const char real : others(typeLetters, right))
                    expectLink(binary(op, typedOperand(left, left), typedOperand(right, real)), *result,
                               "invalid executable link");
            }
}

TEST(OperatorLink, AssignmentsLinkForThePairsOfTheTableAlone)
{
    int linked = 0;
    for (const std::string& op : assignmentOperators())
        for (const char left : valueLetters)
            for (const char right : typeLetters) {
                const bool known = hasAssignment(op, left, right);
                linked += known;
                expectLink(assignment(op, left, right, left, right), left,
                           known ? "linked" : "cannot link operator");
            }
    EXPECT_EQ(linked, 78);
}

TEST(OperatorLink, AssignmentsRefuseTargetsAndSourcesThatAreNotWhatTheTextNames)
{
    for (const std::string& op : assignmentOperators())
        for (const char left : valueLetters)
            for (const char right : valueLetters) {
                if (!hasAssignment(op, left, right))
                    continue;
                for (const char real : others(valueLetters, left))
                    expectLink(assignment(op, left, right, real, right), left, "invalid assignment type");
                for (const char real : others(typeLetters, right))
                    expectLink(assignment(op, left, right, left, real), left, "invalid expression types");
            }
}

TEST(OperatorLink, UnaryOperatorsLinkForTheTypesOfTheTableAlone)
{
    int linked = 0;
    for (const std::string& op : unaryOperators())
        for (const char letter : typeLetters) {
            const bool known = hasUnary(op, letter);
            linked += known;
            expectLink(unary(op, letter, letter), letter, known ? "linked" : "cannot link operator");
            for (const char real : others(typeLetters, letter))
                expectLink(unary(op, letter, real), letter, known ? "invalid types" : "cannot link operator");
        }
    EXPECT_EQ(linked, 9);
}

TEST(OperatorLink, IncrementsLinkForTheTypesOfTheTableAlone)
{
    int linked = 0;
    for (const std::string rule : {"pincdec", "sincdec"})
        for (const std::string op : {"++", "--"})
            for (const char letter : valueLetters) {
                const bool known = hasIncDec(letter);
                linked += known;
                expectLink(incDec(rule, op, letter, letter), letter,
                           known ? "linked" : "cannot link operator");
                for (const char real : others(valueLetters, letter))
                    expectLink(incDec(rule, op, letter, real), letter,
                               known ? "invalid types" : "cannot link operator");
            }
    EXPECT_EQ(linked, 12);
}

TEST(VariableLink, TakesAVariableOfTheTypeThatTheTextNamesAlone)
{
    for (const char named : valueLetters)
        for (const char real : valueLetters) {
            const std::string form = concatenated({R"({"rule": "var", "id": )", inQuotes(idOf(real)),
                                                   R"(, "type": )", typeInQuotes(named), "}"});
            expectLink(form, named,
                       named == real
                           ? "linked"
                           : concatenated({"'", idOf(real), "': variable type mismatch: expected '",
                                           spellingOf(named), "', actual '", spellingOf(real), "'"}));
        }
}

TEST(CastLink, TakesTheThreePairsAlone)
{
    int linked = 0;
    for (const char from : typeLetters)
        for (const char to : typeLetters) {
            const std::string pair = {from, to};
            const bool known = pair == "ib" || pair == "db" || pair == "id";
            linked += known;
            const auto form = [&](char real) {
                return concatenated({R"({"rule": "cast", "from": )", typeInQuotes(from), R"(, "to": )",
                                     typeInQuotes(to), R"(, "expr": )", operand(real), "}"});
            };
            expectLink(form(from), to, known ? "linked" : "cannot link cast operator");
            if (known) {
                for (const char real : others(typeLetters, from))
                    expectLink(form(real), to, "invalid cast operation");
            }
        }
    EXPECT_EQ(linked, 3);
}

} // namespace
