// Walks all pairs of types for all operators: what the tables have compiles, shows its type, links and
// evaluates as C++ does on those types; everything else is the right error.

#include "languagetester.h"
#include "operatormodel.h"

namespace {

constexpr std::string_view voidCall = "print(\"\")";

ModelValue someValue(char letter)
{
    return interestingValues(letter)[1];
}

/// A declaration, or nothing for void.
std::string declared(const std::string& name, char letter)
{
    return letter == 'v' ? "" : declarationOf(name, someValue(letter));
}

std::string operandText(const std::string& name, char letter)
{
    return letter == 'v' ? std::string(voidCall) : name;
}

std::string noOperator(int code, std::string_view kind, const std::string& op, std::size_t position,
                       std::string_view operands)
{
    return std::to_string(code) + " at " + std::to_string(position) + "+" + std::to_string(op.size()) + ": " +
           std::string(kind) + " '" + op + "': no matching operator found for " + std::string(operands) +
           " (or there is no acceptable conversion)";
}

/// The type of the last expression of statements that are expected to compile.
std::string lastType(const std::string& source)
{
    return lastExpressionOf(languageBuilder().compileStatements(source).value()).type;
}

/// A statement that shows a value, and the line that it then prints.
struct Shown
{
    std::string statement;
    std::string line;
};

/// There is no print of a char: it is compared with what it must be.
Shown shown(const std::string& expression, const ModelValue& expected)
{
    if (const char* character = std::get_if<char>(&expected))
        return {"print((" + expression + ") == '" + std::string(1, *character) + "'); ", "true"};
    return {"print(" + expression + "); ", printedText(expected)};
}

/// Blocks of statements and the lines that they must print, run as one action.
class Expectations
{
public:
    void open(const std::string& declarations) { m_source += "{ " + declarations; }
    void add(const Shown& show)
    {
        m_source += show.statement;
        m_lines.push_back(show.line);
    }
    void close() { m_source += "}\n"; }

    void check() const
    {
        std::vector<std::string> lines = printedBy(m_source);
        for (std::string& line : lines)
            if (line == "-nan")
                line = "nan";
        ASSERT_EQ(lines.size(), m_lines.size());
        for (std::size_t i = 0; i < lines.size(); ++i)
            ASSERT_EQ(lines[i], m_lines[i]) << "in block " << i << " of:\n" << m_source;
    }

private:
    std::string m_source;
    std::vector<std::string> m_lines;
};

/// Calls `visit` with an operator and the letters of a pair of types.
template <class Visit>
void forAllPairs(const std::vector<std::string>& operators, std::string_view leftLetters,
                 std::string_view rightLetters, const Visit& visit)
{
    for (const std::string& op : operators)
        for (const char left : leftLetters)
            for (const char right : rightLetters) {
                SCOPED_TRACE(spellingOf(left) + " " + op + " " + spellingOf(right));
                visit(op, left, right);
            }
}

TEST(BinaryOperators, CompileForThePairsOfTheTableAndAreErrorTwoForAllOthers)
{
    int accepted = 0;
    forAllPairs(binaryOperators(), typeLetters, typeLetters, [&](const auto& op, char left, char right) {
        const std::string before = declared("a", left) + declared("b", right) + operandText("a", left) + " ";
        const std::string source = before + op + " " + operandText("b", right) + ";";
        const auto result = binaryResult(op, left, right);
        if (result) {
            EXPECT_EQ(lastType(source), spellingOf(*result));
            ++accepted;
        } else {
            EXPECT_EQ(outcomeOf(source), noOperator(2, "binary", op, before.size(), "operands"));
        }
    });
    EXPECT_EQ(accepted, 186);
}

TEST(BinaryOperators, EvaluateAsTheyDoInCpp)
{
    forAllPairs(binaryOperators(), valueLetters, valueLetters, [&](const auto& op, char left, char right) {
        const auto result = binaryResult(op, left, right);
        if (!result)
            return;
        Expectations expectations;
        for (const ModelValue& a : interestingValues(left))
            for (const ModelValue& b : interestingValues(right))
                if (const auto expected = applyBinary(op, a, b)) {
                    ASSERT_EQ(letterOf(*expected), *result) << "the model contradicts the table";
                    expectations.open(declarationOf("a", a) + declarationOf("b", b));
                    expectations.add(shown("a " + op + " b", *expected));
                    expectations.close();
                }
        expectations.check();
    });
}

TEST(AssignmentOperators, CompileForThePairsOfTheTableAndAreErrorOneForAllOthers)
{
    int accepted = 0;
    forAllPairs(assignmentOperators(), valueLetters, typeLetters, [&](const auto& op, char left, char right) {
        const std::string before = declared("a", left) + declared("b", right) + "a ";
        const std::string source = before + op + " " + operandText("b", right) + ";";
        if (hasAssignment(op, left, right)) {
            EXPECT_EQ(lastType(source), spellingOf(left));
            ++accepted;
        } else {
            EXPECT_EQ(outcomeOf(source), noOperator(1, "assignment", op, before.size(), "operands"));
        }
    });
    EXPECT_EQ(accepted, 78);
}

TEST(AssignmentOperators, EvaluateAsTheyDoInCppAndGiveTheNewValue)
{
    forAllPairs(assignmentOperators(), valueLetters, valueLetters,
                [&](const auto& op, char left, char right) {
                    if (!hasAssignment(op, left, right))
                        return;
                    Expectations expectations;
                    for (const ModelValue& a : interestingValues(left))
                        for (const ModelValue& b : interestingValues(right))
                            if (const auto expected = applyAssignment(op, a, b)) {
                                ASSERT_EQ(letterOf(*expected), left) << "the model contradicts the table";
                                expectations.open(declarationOf("a", a) + declarationOf("b", b));
                                expectations.add(shown("a " + op + " b", *expected));
                                expectations.add(shown("a", *expected));
                                expectations.add(shown("b", b));
                                expectations.close();
                            }
                    expectations.check();
                });
}

TEST(UnaryOperators, CompileForTheTypesOfTheTableAndAreErrorTwentyNineForAllOthers)
{
    int accepted = 0;
    for (const std::string& op : unaryOperators())
        for (const char letter : typeLetters) {
            SCOPED_TRACE(op + spellingOf(letter));
            const std::string before = declared("a", letter);
            const std::string source = before + op + operandText("a", letter) + ";";
            if (hasUnary(op, letter)) {
                EXPECT_EQ(lastType(source), spellingOf(letter));
                ++accepted;
            } else {
                EXPECT_EQ(outcomeOf(source), noOperator(29, "unary", op, before.size(), "operand"));
            }
        }
    EXPECT_EQ(accepted, 9);
}

TEST(UnaryOperators, EvaluateAsTheyDoInCpp)
{
    for (const std::string& op : unaryOperators())
        for (const char letter : valueLetters) {
            if (!hasUnary(op, letter))
                continue;
            SCOPED_TRACE(op + spellingOf(letter));
            Expectations expectations;
            for (const ModelValue& a : interestingValues(letter)) {
                expectations.open(declarationOf("a", a));
                expectations.add(shown(op + "a", applyUnary(op, a)));
                expectations.add(shown("a", a));
                expectations.close();
            }
            expectations.check();
        }
}

TEST(IncrementAndDecrement, CompileForTheTypesOfTheTableAndAreErrorTwentyNineForAllOthers)
{
    int accepted = 0;
    for (const std::string op : {"++", "--"})
        for (const bool prefix : {true, false})
            for (const char letter : valueLetters) {
                SCOPED_TRACE(op + spellingOf(letter) + (prefix ? " prefix" : " suffix"));
                const std::string declaration = declared("a", letter);
                const std::string source = declaration + (prefix ? op + "a;" : "a" + op + ";");
                const std::size_t position = declaration.size() + (prefix ? 0 : 1);
                if (hasIncDec(letter)) {
                    EXPECT_EQ(lastType(source), spellingOf(letter));
                    ++accepted;
                } else {
                    EXPECT_EQ(outcomeOf(source), noOperator(29, "unary", op, position, "operand"));
                }
            }
    EXPECT_EQ(accepted, 12);
}

TEST(IncrementAndDecrement, GiveTheNewValueBeforeAndTheOldValueBehind)
{
    for (const std::string op : {"++", "--"})
        for (const char letter : {'i', 'l', 'u'}) {
            SCOPED_TRACE(op + spellingOf(letter));
            Expectations expectations;
            for (const ModelValue& a : interestingValues(letter)) {
                const ModelValue stepped = applyIncDec(op, a);
                expectations.open(declarationOf("a", a));
                expectations.add(shown(op + "a", stepped));
                expectations.add(shown("a", stepped));
                expectations.close();
                expectations.open(declarationOf("a", a));
                expectations.add(shown("a" + op, a));
                expectations.add(shown("a", stepped));
                expectations.close();
            }
            expectations.check();
        }
}

TEST(OperatorModel, HasTablesOfTheKnownSizes)
{
    int binary = 0;
    int assignment = 0;
    forAllPairs(binaryOperators(), typeLetters, typeLetters, [&](const auto& op, char left, char right) {
        binary += binaryResult(op, left, right).has_value();
    });
    forAllPairs(assignmentOperators(), typeLetters, typeLetters,
                [&](const auto& op, char left, char right) { assignment += hasAssignment(op, left, right); });
    EXPECT_EQ(binary, 186);
    EXPECT_EQ(assignment, 78);
}

} // namespace
