#include "statechart/text/format.h"

#include "statechart/text/formatdouble.h"
#include "statechart/text/formatspec.h"
#include "statechart/text/textwidth.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <utility>

namespace {

FormatKind kindOf(const FormatArgument& argument)
{
    // In the order of FormatArgument::Value.
    constexpr FormatKind kinds[] = {FormatKind::boolean, FormatKind::character, FormatKind::integer,
                                    FormatKind::integer, FormatKind::real,      FormatKind::text};
    return kinds[argument.value().index()];
}

/// Puts a text into its width. Numbers stand at the right unless told otherwise, everything else at the left.
void appendPadded(std::string& output, std::string_view text, const FormatSpec& spec, char ownAlign)
{
    const std::size_t width = textWidth(text);
    const auto wanted = static_cast<std::size_t>(spec.width);
    const std::size_t padding = wanted > width ? wanted - width : 0;
    const char align = spec.align != 0 ? spec.align : ownAlign;
    const std::size_t before = align == '<' ? 0 : align == '^' ? padding / 2 : padding;
    output.reserve(output.size() + text.size() + padding * spec.fill.size());
    for (std::size_t count = 0; count < before; ++count)
        output += spec.fill;
    output += text;
    for (std::size_t count = before; count < padding; ++count)
        output += spec.fill;
}

/// Sign, prefix and digits of a number. '0' fills with zeros behind the prefix, unless an alignment is given.
void appendNumber(std::string& output, bool negative, std::string_view prefix, std::string_view digits,
                  const FormatSpec& spec, bool mayFillWithZeros)
{
    std::string text;
    if (negative)
        text += '-';
    else if (spec.sign != '-')
        text += spec.sign;
    text += prefix;
    const auto width = static_cast<std::size_t>(spec.width);
    const std::size_t length = text.size() + digits.size();
    if (spec.zero && spec.align == 0 && mayFillWithZeros && width > length)
        text.append(width - length, '0');
    text += digits;
    appendPadded(output, text, spec, '>');
}

void appendInteger(std::string& output, bool negative, std::uint64_t magnitude, const FormatSpec& spec)
{
    int base = 10;
    std::string_view prefix;
    switch (spec.type) {
    case 'b':
        base = 2;
        prefix = "0b";
        break;
    case 'B':
        base = 2;
        prefix = "0B";
        break;
    case 'o':
        base = 8;
        prefix = magnitude != 0 ? "0" : "";
        break;
    case 'x':
        base = 16;
        prefix = "0x";
        break;
    case 'X':
        base = 16;
        prefix = "0X";
        break;
    default:
        break;
    }
    char buffer[64];
    const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, magnitude, base);
    if (spec.type == 'X') {
        std::transform(buffer, end, buffer, [](char digit) {
            return digit >= 'a' ? static_cast<char>(digit - 'a' + 'A') : digit;
        });
    }
    appendNumber(output, negative, spec.alternate ? prefix : std::string_view(),
                 std::string_view(buffer, static_cast<std::size_t>(end - buffer)), spec, true);
}

void append(std::string& output, std::string_view value, const FormatSpec& spec)
{
    if (spec.precision >= 0)
        value = textWithin(value, static_cast<std::size_t>(spec.precision));
    appendPadded(output, value, spec, '<');
}

void append(std::string& output, bool value, const FormatSpec& spec)
{
    if (spec.type == 0 || spec.type == 's')
        appendPadded(output, value ? "true" : "false", spec, '<');
    else
        appendInteger(output, false, value ? 1 : 0, spec);
}

void append(std::string& output, char value, const FormatSpec& spec)
{
    if (spec.type == 0 || spec.type == 'c')
        appendPadded(output, std::string_view(&value, 1), spec, '<');
    else
        appendInteger(output, false, static_cast<unsigned char>(value), spec);
}

template <class Integer>
void append(std::string& output, Integer value, const FormatSpec& spec)
{
    if (spec.type == 'c') {
        if (!std::in_range<signed char>(value))
            throw FormatException("an integer is no character");
        const char character = static_cast<char>(value);
        appendPadded(output, std::string_view(&character, 1), spec, '<');
        return;
    }
    const bool negative = std::cmp_less(value, 0);
    const auto bits = static_cast<std::uint64_t>(value);
    appendInteger(output, negative, negative ? std::uint64_t{0} - bits : bits, spec);
}

void append(std::string& output, double value, const FormatSpec& spec)
{
    appendNumber(output, std::signbit(value), "", doubleDigits(std::fabs(value), spec), spec,
                 std::isfinite(value));
}

class Formatter
{
public:
    Formatter(std::string_view format, std::initializer_list<FormatArgument> arguments)
        : m_format(format), m_arguments(arguments)
    {}

    std::string text()
    {
        while (m_position < m_format.size()) {
            const std::size_t brace = std::min(m_format.find_first_of("{}", m_position), m_format.size());
            m_output += m_format.substr(m_position, brace - m_position);
            m_position = brace;
            if (brace < m_format.size())
                takeBrace();
        }
        return std::move(m_output);
    }

private:
    bool isAt(char character) const
    {
        return m_position < m_format.size() && m_format[m_position] == character;
    }

    void takeBrace()
    {
        const char brace = m_format[m_position++];
        if (isAt(brace)) {
            m_output += brace;
            ++m_position;
        } else if (brace == '{') {
            takeField();
        } else {
            throw FormatException("unmatched '}' in a format");
        }
    }

    void takeField()
    {
        const FormatArgument& argument = takeArgument(m_position);
        FormatSpec spec;
        if (isAt(':')) {
            ++m_position;
            spec = parseFormatSpec(m_format, m_position, kindOf(argument),
                                   [this](std::size_t& position) { return takeNestedField(position); });
        }
        if (!isAt('}'))
            throw FormatException("unmatched '{' in a format");
        ++m_position;
        std::visit([&](const auto& value) { append(m_output, value, spec); }, argument.value());
    }

    /// The argument that the number at `position`, or else the next place in the row, stands for.
    const FormatArgument& takeArgument(std::size_t& position)
    {
        const bool numbered =
            position < m_format.size() && m_format[position] >= '0' && m_format[position] <= '9';
        const Numbering numbering = numbered ? Numbering::manual : Numbering::automatic;
        if (m_numbering != Numbering::none && m_numbering != numbering)
            throw FormatException("automatic and manual numbering do not mix");
        m_numbering = numbering;
        std::size_t index = m_next;
        if (!numbered) {
            ++m_next;
        } else if (m_format[position] == '0') {
            ++position;
            index = 0;
        } else {
            index = static_cast<std::size_t>(parseFormatNumber(m_format, position));
        }
        if (index >= m_arguments.size())
            throw FormatException("a format names an argument that is not there");
        return m_arguments.begin()[index];
    }

    int takeNestedField(std::size_t& position)
    {
        const FormatArgument& argument = takeArgument(position);
        if (position >= m_format.size() || m_format[position] != '}')
            throw FormatException("a nested field holds an argument's number only");
        ++position;
        return std::visit(
            [](const auto& value) -> int {
                using Value = std::decay_t<decltype(value)>;
                if constexpr (std::is_same_v<Value, std::int64_t> || std::is_same_v<Value, std::uint64_t>) {
                    if (std::cmp_less(value, 0) || !std::in_range<int>(value))
                        throw FormatException("a width or precision is out of range");
                    return static_cast<int>(value);
                } else {
                    throw FormatException("a width or precision is no integer");
                }
            },
            argument.value());
    }

    enum class Numbering
    {
        none,
        automatic,
        manual,
    };

    std::string_view m_format;
    std::initializer_list<FormatArgument> m_arguments;
    std::size_t m_position = 0;
    std::size_t m_next = 0;
    Numbering m_numbering = Numbering::none;
    std::string m_output;
};

} // namespace

std::string formatArguments(std::string_view format, std::initializer_list<FormatArgument> arguments)
{
    return Formatter(format, arguments).text();
}
