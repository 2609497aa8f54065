#include "statechart/text/formatspec.h"

#include "statechart/text/format.h"
#include "statechart/text/textwidth.h"

#include <array>
#include <charconv>

namespace {

struct KindRules
{
    FormatKind kind;
    std::string_view types;
    std::string_view integerTypes; // those that make an integer of an argument that is none
    bool precision;
    bool locale;
};

// To add a presentation type, put its letter here and word it in format.cpp or formatdouble.cpp.
constexpr std::array<KindRules, 5> kindRules{{
    {FormatKind::boolean, "sbBdoxX", "bBdoxX", false, true},
    {FormatKind::character, "cbBdoxX", "bBdoxX", false, true},
    {FormatKind::integer, "bBcdoxX", "bBdoxX", false, true},
    {FormatKind::real, "aAeEfFgG", "", true, true},
    {FormatKind::text, "s", "", true, false},
}};

const KindRules& rulesOf(FormatKind kind)
{
    return kindRules[static_cast<std::size_t>(kind)];
}

bool isDigit(char character)
{
    return character >= '0' && character <= '9';
}

bool isAlign(char character)
{
    return character == '<' || character == '^' || character == '>';
}

class SpecParser
{
public:
    SpecParser(std::string_view format, std::size_t& position, const NestedFieldReader& readNestedField)
        : m_format(format), m_position(position), m_readNestedField(readNestedField)
    {}

    FormatSpec parse(FormatKind kind)
    {
        const KindRules& rules = rulesOf(kind);
        FormatSpec spec;
        parseAlign(spec);
        const bool hasSign = here() == '+' || here() == '-' || here() == ' ';
        if (hasSign)
            spec.sign = take();
        spec.alternate = takeIf('#');
        spec.zero = takeIf('0');
        spec.width = parseWidth();
        if (takeIf('.')) {
            if (!rules.precision)
                throw FormatException("precision is not allowed for this argument");
            spec.precision = parsePrecision();
        }
        if (takeIf('L') && !rules.locale)
            throw FormatException("'L' is not allowed for this argument");
        if (here() != '}')
            spec.type = parseType(rules);
        if ((hasSign || spec.alternate || spec.zero) && !takesNumberOptions(kind, spec.type))
            throw FormatException("a sign, '#' or '0' needs a number");
        return spec;
    }

private:
    // A byte that ends every part of a specification, when the text is used up.
    static constexpr char endOfText = '\0';

    char here() const { return m_position < m_format.size() ? m_format[m_position] : endOfText; }
    char take() { return m_format[m_position++]; }

    bool takeIf(char character)
    {
        if (m_position >= m_format.size() || m_format[m_position] != character)
            return false;
        ++m_position;
        return true;
    }

    void parseAlign(FormatSpec& spec)
    {
        if (m_position >= m_format.size())
            return;
        const std::size_t fillLength = characterLength(m_format.substr(m_position));
        const std::size_t behindFill = m_position + fillLength;
        if (behindFill < m_format.size() && isAlign(m_format[behindFill]) && here() != '}') {
            if (here() == '{')
                throw FormatException("a brace cannot fill");
            spec.fill = m_format.substr(m_position, fillLength);
            spec.align = m_format[behindFill];
            m_position = behindFill + 1;
        } else if (isAlign(here())) {
            spec.align = take();
        }
    }

    int parseWidth()
    {
        if (takeIf('{'))
            return withinLimit(m_readNestedField(m_position));
        if (here() == '0')
            throw FormatException("a width does not start with 0");
        return isDigit(here()) ? withinLimit(parseFormatNumber(m_format, m_position)) : 0;
    }

    int parsePrecision()
    {
        if (takeIf('{'))
            return withinLimit(m_readNestedField(m_position));
        if (!isDigit(here()))
            throw FormatException("a precision is missing");
        return withinLimit(parseFormatNumber(m_format, m_position));
    }

    static int withinLimit(int number)
    {
        if (number > formatMaximumWidth)
            throw FormatException("a width or precision is too large");
        return number;
    }

    char parseType(const KindRules& rules)
    {
        const char type = here();
        if (type == endOfText || rules.types.find(type) == std::string_view::npos)
            throw FormatException("invalid format specification");
        ++m_position;
        if (here() != '}')
            throw FormatException("invalid format specification");
        return type;
    }

    static bool takesNumberOptions(FormatKind kind, char type)
    {
        if (kind == FormatKind::real || (kind == FormatKind::integer && type == 0))
            return true;
        return type != 0 && rulesOf(kind).integerTypes.find(type) != std::string_view::npos;
    }

    std::string_view m_format;
    std::size_t& m_position;
    const NestedFieldReader& m_readNestedField;
};

} // namespace

FormatSpec parseFormatSpec(std::string_view format, std::size_t& position, FormatKind kind,
                           const NestedFieldReader& readNestedField)
{
    return SpecParser(format, position, readNestedField).parse(kind);
}

int parseFormatNumber(std::string_view format, std::size_t& position)
{
    int number = 0;
    const char* const start = format.data() + position;
    const auto [end, error] = std::from_chars(start, format.data() + format.size(), number);
    if (error != std::errc())
        throw FormatException("a number in a format is too large");
    position += static_cast<std::size_t>(end - start);
    return number;
}
