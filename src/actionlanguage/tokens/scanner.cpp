#include "actionlanguage/tokens/scanner.h"

#include "actionlanguage/tokens/compilationexception.h"
#include "actionlanguage/tokens/tokeniser.h"

#include <algorithm>

namespace {

// Plain ASCII: the classes of the C library go through the locale.
constexpr bool isDigit(char byte)
{
    return byte >= '0' && byte <= '9';
}

constexpr bool isIdentifierStart(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_';
}

constexpr bool isExponent(char byte)
{
    return byte == 'e' || byte == 'E';
}

} // namespace

Scanner::Scanner(std::string_view source, std::vector<Diagnostic>& diagnostics)
    : m_source(source), m_diagnostics(diagnostics)
{
    m_tokens.reserve(std::min(source.size() / 6, maximumTokens));
}

std::vector<Token> Scanner::scan()
{
    while (m_position < m_source.size())
        scanNext();
    return std::move(m_tokens);
}

void Scanner::scanNext()
{
    using enum PunctuatorId;
    const char byte = m_source[m_position];
    switch (byte) {
    case '\t':
    case '\n':
    case '\v':
    case '\f':
    case '\r':
    case ' ':
        ++m_position;
        return;

    case '{':
        return punctuator(openBrace);
    case '}':
        return punctuator(closeBrace);
    case '[':
        return punctuator(openBracket);
    case ']':
        return punctuator(closeBracket);
    case '(':
        return punctuator(openParenthesis);
    case ')':
        return punctuator(closeParenthesis);
    case ',':
        return punctuator(comma);
    case ';':
        return punctuator(semicolon);
    case '?':
        return punctuator(question);
    case '~':
        return punctuator(tilde);

    case '#':
        return longestPunctuator({hashHash, hash});
    case '!':
        return longestPunctuator({notEqual, exclamation});
    case '=':
        return longestPunctuator({equal, assign});
    case '^':
        return longestPunctuator({caretAssign, caret});
    case '*':
        return longestPunctuator({starAssign, star});
    case '%':
        return longestPunctuator({percentAssign, percent});
    case '&':
        return longestPunctuator({andAnd, andAssign, and_});
    case '|':
        return longestPunctuator({orOr, orAssign, or_});
    case '+':
        return longestPunctuator({plusPlus, plusAssign, plus});
    case '-':
        return longestPunctuator({minusMinus, minusAssign, arrow, minus});
    case ':':
        return longestPunctuator({colonColon, colon});
    case '<':
        return longestPunctuator({shiftLeftAssign, shiftLeft, lessEqual, less});
    case '>':
        return greaterThan();
    case '/':
        return slashOrComment();
    case '.':
        if (m_position + 1 < m_source.size() && isDigit(m_source[m_position + 1]))
            return number();
        return punctuator(dot);

    case '"':
        return string();
    case '\'':
        return character();

    default:
        break;
    }

    if (isIdentifierStart(byte))
        return identifier();
    if (isDigit(byte))
        return number();
    throw TokeniserAllocationFailure(m_position);
}

void Scanner::punctuator(PunctuatorId id)
{
    take(m_position + punctuatorTable[static_cast<std::size_t>(id)].size(), BasicPunctuatorTokenDetail(id));
}

void Scanner::longestPunctuator(std::initializer_list<PunctuatorId> candidates)
{
    for (const PunctuatorId id : candidates)
        if (m_source.substr(m_position).starts_with(punctuatorTable[static_cast<std::size_t>(id)]))
            return punctuator(id);
}

void Scanner::greaterThan()
{
    if (at(m_position + 1, '>') && at(m_position + 2, '='))
        return punctuator(PunctuatorId::shiftRightAssign);
    // ">>" carries the id of ">=": the settled behaviour of the language. Rules compare texts.
    if (at(m_position + 1, '>') || at(m_position + 1, '='))
        return take(m_position + 2, BasicPunctuatorTokenDetail(PunctuatorId::greaterEqual));
    punctuator(PunctuatorId::greater);
}

void Scanner::slashOrComment()
{
    if (at(m_position + 1, '='))
        return punctuator(PunctuatorId::slashAssign);
    if (at(m_position + 1, '/'))
        return lineComment();
    if (at(m_position + 1, '*'))
        return blockComment();
    punctuator(PunctuatorId::slash);
}

void Scanner::lineComment()
{
    std::size_t position = m_position + 2;
    while (position < m_source.size() && m_source[position] != '\n')
        position += m_source[position] == '\\' && at(position + 1, '\n') ? 2 : 1;
    m_position = std::min(position + 1, m_source.size());
}

void Scanner::blockComment()
{
    // The language's block comment is four characters, its opener among them; it has no closing mark.
    if (m_position + 3 < m_source.size()) {
        m_position += 4;
        return;
    }
    record(LanguageError::unterminatedComment, m_position + 2);
    m_position += 2;
}

void Scanner::identifier()
{
    std::size_t end = m_position;
    while (end < m_source.size() && (isIdentifierStart(m_source[end]) || isDigit(m_source[end])))
        ++end;
    take(end, BasicIdentifierTokenDetail());
}

void Scanner::number()
{
    std::size_t end = m_position;
    LiteralKind kind = LiteralKind::integer;
    const auto takeDigits = [&] {
        while (end < m_source.size() && isDigit(m_source[end]))
            ++end;
    };
    takeDigits();
    if (at(end, '.')) {
        kind = LiteralKind::real;
        ++end;
        takeDigits();
    }
    if (end < m_source.size() && isExponent(m_source[end])) {
        kind = LiteralKind::real;
        ++end;
        takeDigits();
    }
    take(end, BasicLiteralTokenDetail(kind));
}

void Scanner::string()
{
    std::size_t end = m_position + 1;
    while (end < m_source.size()) {
        const char byte = m_source[end];
        if (byte == '\n') {
            record(LanguageError::newlineInConstant, end);
            break;
        }
        if (byte == '"') {
            ++end;
            break;
        }
        // A backslash looks at the next character only: the second of a pair protects the quote after it.
        end += byte == '\\' && (at(end + 1, '"') || at(end + 1, '\n')) ? 2 : 1;
    }
    take(end, BasicLiteralTokenDetail(LiteralKind::string));
}

void Scanner::character()
{
    std::size_t end = m_position + 1;
    while (end < m_source.size()) {
        if (m_source[end] == '\'') {
            ++end;
            break;
        }
        end += m_source[end] == '\\' && at(end + 1, '\'') ? 2 : 1;
    }
    take(end, BasicLiteralTokenDetail(LiteralKind::character));
}

void Scanner::take(std::size_t end, Token::Detail detail)
{
    if (m_tokens.size() == maximumTokens)
        throw TooManyTokensException({m_position, end - m_position});
    m_tokens.emplace_back(m_source.substr(m_position, end - m_position), m_position, detail);
    m_position = end;
}

void Scanner::record(LanguageError code, std::size_t position)
{
    m_diagnostics.push_back(
        {static_cast<std::uint32_t>(code), position, position < m_source.size() ? std::uint64_t{1} : 0});
}
