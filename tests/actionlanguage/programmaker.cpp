#include "programmaker.h"

#include "operatormodel.h"
#include "support/concatenated.h"

namespace {

constexpr std::string_view variableLetters = "bcdilsu";
constexpr int variablesOfEachType = 2;

/// Of each type of integers there is a variable that nothing assigns, and that may be divided by.
constexpr std::string_view divisorLetters = "ilu";

std::string divisorName(char letter)
{
    return concatenated({"by_", std::string(1, letter)});
}

class ProgramMaker
{
public:
    explicit ProgramMaker(std::mt19937& random) : m_random(random) {}

    Program make()
    {
        Program program;
        for (const char letter : variableLetters)
            for (int number = 0; number < variablesOfEachType; ++number)
                program.push_back({declaration(letter, number)});
        for (const char letter : divisorLetters)
            program.push_back({declarationOf(divisorName(letter), divisorValue(letter))});
        append(program, 3 + below(6), 3);
        for (const char letter : variableLetters)
            for (int number = 0; number < variablesOfEachType; ++number)
                if (letter != 'c')
                    program.push_back({concatenated({"print(", name(letter, number), ");"})});
        return program;
    }

private:
    unsigned below(unsigned limit) { return static_cast<unsigned>(m_random() % limit); }

    template <class List>
    auto anyOf(const List& list)
    {
        return list[below(static_cast<unsigned>(std::size(list)))];
    }

    static std::string name(char letter, int number)
    {
        return concatenated({std::string(1, letter), std::to_string(number)});
    }

    std::string declaration(char letter, int number)
    {
        if (letter == 'c')
            return concatenated({"char ", name(letter, number), " = ", literal(letter), ";"});
        return declarationOf(name(letter, number), anyOf(interestingValues(letter)));
    }

    std::string variable(char letter) { return name(letter, static_cast<int>(below(variablesOfEachType))); }

    ModelValue divisorValue(char letter)
    {
        const unsigned value = 1 + below(300);
        if (letter == 'i')
            return static_cast<std::int32_t>(value);
        if (letter == 'l')
            return static_cast<std::int64_t>(value);
        return static_cast<std::uint64_t>(value);
    }

    // --- statements

    void append(Program& program, unsigned count, int depth)
    {
        for (; count > 0; --count)
            program.push_back(statement(depth));
    }

    ProgramPart block(std::string before, int depth, std::string behind = {})
    {
        ProgramPart part{std::move(before), {}, true, std::move(behind)};
        append(part.inside, below(4), depth - 1);
        return part;
    }

    ProgramPart statement(int depth)
    {
        switch (below(depth > 0 ? 14 : 7)) {
        case 0:
        case 1:
        case 2:
            return {assignment(anyOf(variableLetters), 3) + ";"};
        case 3:
            return {step(anyOf(std::string_view("ilu"))) + ";"};
        case 4:
            return {concatenated({"print(", expression(anyOf(std::string_view("bdilsu")), 2), ");"})};
        case 5:
            return {expression(anyOf(std::string_view("bdilu")), 3) + ";"};
        case 6:
            return {std::string(below(2) ? ";" : "{ ; }")};
        case 7:
        case 8:
            return block(concatenated({"if (", condition(), ")"}), depth);
        case 9: {
            // The first branch is a block, so that what is left out never takes the "else" along.
            ProgramPart both = block("", depth);
            both.inside.push_back(block(concatenated({"if (", condition(), ")"}), depth, " else { ++i0; }"));
            return both;
        }
        case 10:
            return block(concatenated({"if (", condition(), ") i1 = i1 + 1; else if (", condition(),
                                       ") d0 += d1; else"}),
                         depth);
        case 11:
            return countingFor(depth);
        case 12:
            return countingWhile(depth);
        default:
            return countingDo(depth);
        }
    }

    /// A variable that counts the rounds of one loop.
    std::string newCounter() { return concatenated({"n", std::to_string(m_counters++)}); }

    std::string rounds() { return std::to_string(below(4)); }

    ProgramPart countingFor(int depth)
    {
        const std::string counter = newCounter();
        const char letter = anyOf(std::string_view("ilud"));
        static constexpr std::string_view steps[] = {"++", " += 1", " = ", "++"};
        const std::string_view step = letter == 'd' ? " += 1" : anyOf(steps);
        const std::string iteration =
            step == " = " ? concatenated({counter, " = ", counter, " + 1"}) : concatenated({counter, step});
        return block(concatenated({"for (", spellingOf(letter), " ", counter, " = 0; ", counter,
                                   letter == 'u' ? " != " : " < ", rounds(), "; ", iteration, ")"}),
                     depth);
    }

    ProgramPart countingWhile(int depth)
    {
        const std::string counter = newCounter();
        ProgramPart whole{"", {}, true, {}};
        whole.inside.push_back(
            block(concatenated({"int ", counter, " = ", rounds(), "; while (",
                                below(2) ? concatenated({counter, "-- > 0"})
                                         : concatenated({condition("b"), " && (", counter, "-- > 0)"}),
                                ")"}),
                  depth));
        return whole;
    }

    ProgramPart countingDo(int depth)
    {
        const std::string counter = newCounter();
        return block(concatenated({"int ", counter, " = ", rounds(), "; do"}), depth,
                     concatenated({" while (", "(", below(2) ? "--" : "", counter, below(2) ? " - 1" : "",
                                   " > 0) && ((", counter, " -= 1) > 0));"}));
    }

    // --- expressions

    /// A condition of a statement, in which the language takes no comma operator.
    std::string condition(std::string_view letters = "bbbbid")
    {
        m_mayUseCommas = false;
        std::string text = expression(anyOf(letters), 2);
        m_mayUseCommas = true;
        return text;
    }

    std::string step(char letter)
    {
        const std::string op = below(2) ? "++" : "--";
        return below(2) ? op + variable(letter) : variable(letter) + op;
    }

    std::string literal(char letter)
    {
        switch (letter) {
        case 'b':
            return below(2) ? "true" : "false";
        case 'c':
            return concatenated({"'", std::string(1, static_cast<char>('a' + below(4))), "'"});
        case 'd':
            return concatenated({std::to_string(below(9)), ".", std::to_string(below(100))});
        case 's':
            return concatenated({"\"text ", std::to_string(below(100)), "\""});
        default:
            return std::to_string(below(3) ? below(70) : m_random() % 2147483647U);
        }
    }

    std::string leaf(char letter)
    {
        // Literals of 64 bits do not exist.
        const bool hasLiteral = letter != 'l' && letter != 'u';
        return hasLiteral && below(2) ? literal(letter) : variable(letter);
    }

    std::string expression(char letter, int depth)
    {
        if (depth == 0 || below(6) == 0)
            return leaf(letter);
        for (int attempt = 0; attempt < 20; ++attempt) {
            std::string text;
            switch (below(10)) {
            case 0:
                text = unary(letter, depth - 1);
                break;
            case 1:
                text = concatenated({"(", assignment(letter, depth - 1), ")"});
                break;
            case 2:
                if (hasIncDec(letter))
                    text = concatenated({"(", step(letter), ")"});
                break;
            case 3:
                if (m_mayUseCommas)
                    text = concatenated({"(", expression(anyOf(variableLetters), depth - 1), ", ",
                                         expression(letter, depth - 1), ")"});
                break;
            case 4:
                text = call(letter, depth - 1);
                break;
            default:
                text = binary(letter, depth - 1);
                break;
            }
            if (!text.empty())
                return text;
        }
        return leaf(letter);
    }

    std::string unary(char letter, int depth)
    {
        const std::string op = anyOf(unaryOperators());
        return hasUnary(op, letter) ? concatenated({"(", op, expression(letter, depth), ")"}) : "";
    }

    std::string call(char letter, int depth)
    {
        switch (letter) {
        case 'd':
            return below(2)
                       ? concatenated({"abs(", expression(below(2) ? 'd' : 'i', depth), ")"})
                       : concatenated({"max(", expression('d', depth), ", ", expression('d', depth), ")"});
        case 'i':
        case 'l':
        case 'u':
            return concatenated({"min(", expression(letter, depth), ", ", expression(letter, depth), ")"});
        case 's':
            return concatenated(
                {"format(\"<{}>\", ", expression(anyOf(std::string_view("bdilsu")), depth), ")"});
        default:
            return "";
        }
    }

    /// The right side of "/" or "%": an integer that is neither zero nor -1, whatever runs.
    std::string divisor(char letter, int depth)
    {
        if (letter == 'd')
            return expression(letter, depth);
        if (below(2))
            return divisorName(letter);
        if (letter == 'i' && below(2))
            return std::to_string(1 + below(1000));
        return concatenated({"((", expression(letter, depth), " & 255) + 1)"});
    }

    std::string rightSide(std::string_view op, char letter, int depth)
    {
        const bool divides = op == "/" || op == "%" || op == "/=" || op == "%=";
        return divides ? divisor(letter, depth) : expression(letter, depth);
    }

    std::string binary(char letter, int depth)
    {
        for (int attempt = 0; attempt < 40; ++attempt) {
            const std::string op = anyOf(binaryOperators());
            const char left = anyOf(std::string_view("bcdilu"));
            const char right = anyOf(std::string_view("bcdilu"));
            if (binaryResult(op, left, right) == letter)
                return concatenated(
                    {"(", expression(left, depth), " ", op, " ", rightSide(op, right, depth), ")"});
        }
        return "";
    }

    std::string assignment(char letter, int depth)
    {
        for (int attempt = 0; attempt < 40; ++attempt) {
            const std::string op = below(2) ? "=" : anyOf(assignmentOperators());
            const char right = below(2) ? letter : anyOf(variableLetters);
            if (hasAssignment(op, letter, right))
                return concatenated({variable(letter), " ", op, " ", rightSide(op, right, depth)});
        }
        const std::string same = variable(letter);
        return concatenated({same, " = ", same});
    }

    std::mt19937& m_random;
    unsigned m_counters = 0;
    bool m_mayUseCommas = true;
};

void appendSource(std::string& source, const Program& program, unsigned indent)
{
    for (const ProgramPart& part : program) {
        source += concatenated({std::string(indent, ' '), part.text});
        if (part.isBlock) {
            source += " {\n";
            appendSource(source, part.inside, indent + 4);
            source += concatenated({std::string(indent, ' '), "}", part.behind});
        }
        source += "\n";
    }
}

} // namespace

Program makeProgram(std::mt19937& random)
{
    return ProgramMaker(random).make();
}

std::string sourceOf(const Program& program)
{
    std::string source;
    appendSource(source, program, 0);
    return source;
}

std::vector<Program> shrunk(const Program& program)
{
    std::vector<Program> smaller;
    for (std::size_t place = 0; place < program.size(); ++place) {
        Program without = program;
        without.erase(without.begin() + static_cast<std::ptrdiff_t>(place));
        smaller.push_back(std::move(without));
        for (Program& inside : shrunk(program[place].inside)) {
            Program changed = program;
            changed[place].inside = std::move(inside);
            smaller.push_back(std::move(changed));
        }
    }
    return smaller;
}
