#include "lsp/textplace.h"

#include <charconv>
#include <stdexcept>

namespace {

/// Lines end with a line feed, a carriage return, or both, as the protocol has it.
class Lines
{
public:
    explicit Lines(const QString& text) : m_text(text) {}

    /// Whether there is a line more; its bounds are then start and end.
    bool next()
    {
        if (m_next > m_text.size())
            return false;
        start = m_next;
        end = start;
        while (end < m_text.size() && m_text.at(end) != QLatin1Char('\n') &&
               m_text.at(end) != QLatin1Char('\r'))
            ++end;
        const bool both = m_text.mid(end, 2) == QLatin1String("\r\n");
        m_next = end + (both ? 2 : 1);
        return true;
    }

    int start = 0;
    int end = 0;

private:
    const QString& m_text;
    int m_next = 0;
};

int parseCount(const char*& at, const char* end)
{
    int count = 0;
    const auto [behind, error] = std::from_chars(at, end, count);
    if (error != std::errc() || count < 1)
        return 0;
    at = behind;
    return count;
}

} // namespace

TextPlace parseTextPlace(const std::string& text)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    TextPlace place;
    place.line = parseCount(at, end);
    if (place.line > 0 && at != end && *at == ':')
        place.column = parseCount(++at, end);
    else
        place.column = 0;
    if (place.column == 0 || at != end)
        throw std::invalid_argument("'" + text + "' is not LINE:COLUMN, both counted from 1");
    return place;
}

ProtocolPlace protocolPlace(const QString& text, TextPlace place)
{
    Lines lines(text);
    for (int line = 1; line <= place.line; ++line) {
        if (!lines.next())
            throw std::invalid_argument("there is no line " + std::to_string(place.line));
    }
    int at = lines.start;
    for (int column = 1; column < place.column; ++column) {
        if (at >= lines.end)
            throw std::invalid_argument("line " + std::to_string(place.line) + " has no column " +
                                        std::to_string(place.column));
        const bool pair =
            at + 1 < lines.end && text.at(at).isHighSurrogate() && text.at(at + 1).isLowSurrogate();
        at += pair ? 2 : 1;
    }
    return {place.line - 1, at - lines.start};
}
