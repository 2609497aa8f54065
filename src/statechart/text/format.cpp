#include "statechart/text/format.h"

#include "statechart/text/formatdouble.h"
#include "statechart/text/formatspec.h"
#include "statechart/text/numbertext.h"
#include "statechart/text/textwidth.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <utility>

namespace {

FormatKind kindOf(const FormatArgument& argument)
{
    // In the order of FormatArgument::Value.
    constexpr FormatKind kinds[] = {FormatKind::boolean, FormatKind::character, FormatKind::integer,
                                    FormatKind::integer, FormatKind::real,      FormatKind::text};
    return kinds[argument.value().index()];
}

/// The library behind does the putting: `spec`, which has passed the standard's grammar, as it writes one. It
/// would let '0' win over an alignment, which the standard does not.
template <class Value>
void appendThroughLibrary(std::string& output, const Value& value, const FormatSpec& spec)
{
    std::string field = "{:";
    if (spec.align != 0)
        field.append(spec.fill).append(1, spec.align);
    if (spec.sign != '-')
        field += spec.sign;
    if (spec.alternate)
        field += '#';
    if (spec.zero && spec.align == 0)
        field += '0';
    if (spec.width > 0)
        field += numberText(std::int64_t{spec.width});
    if (spec.precision >= 0)
        field.append(".").append(numberText(std::int64_t{spec.precision}));
    if (spec.type != 0)
        field += spec.type;
    field += '}';
    fmt::format_to(std::back_inserter(output), fmt::runtime(field), value);
}

/// The standard's precision counts columns, the library's characters.
void append(std::string& output, std::string_view value, FormatSpec spec)
{
    if (spec.precision >= 0)
        value = textWithin(value, static_cast<std::size_t>(std::exchange(spec.precision, -1)));
    appendThroughLibrary(output, value, spec);
}

void append(std::string& output, bool value, const FormatSpec& spec)
{
    if (spec.type == 0 || spec.type == 's')
        appendThroughLibrary(output, value ? "true" : "false", spec);
    else
        appendThroughLibrary(output, value ? 1 : 0, spec);
}

void append(std::string& output, char value, const FormatSpec& spec)
{
    if (spec.type == 0 || spec.type == 'c')
        appendThroughLibrary(output, value, spec);
    else
        appendThroughLibrary(output, static_cast<unsigned>(static_cast<unsigned char>(value)), spec);
}

template <class Integer>
void append(std::string& output, Integer value, const FormatSpec& spec)
{
    if (spec.type != 'c') {
        appendThroughLibrary(output, value, spec);
        return;
    }
    if (!std::in_range<signed char>(value))
        throw FormatException("an integer is no character");
    appendThroughLibrary(output, static_cast<char>(value), spec);
}

/// The library words some doubles in its own way, so it is given their text: sign, zeros and digits.
void append(std::string& output, double value, const FormatSpec& spec)
{
    std::string text;
    if (std::signbit(value))
        text += '-';
    else if (spec.sign != '-')
        text += spec.sign;
    const std::string digits = doubleDigits(std::fabs(value), spec);
    const auto width = static_cast<std::size_t>(spec.width);
    const std::size_t length = text.size() + digits.size();
    if (spec.zero && spec.align == 0 && std::isfinite(value) && width > length)
        text.append(width - length, '0');
    text += digits;

    FormatSpec place;
    place.fill = spec.fill;
    place.align = spec.align != 0 ? spec.align : '>';
    place.width = spec.width;
    appendThroughLibrary(output, text, place);
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
