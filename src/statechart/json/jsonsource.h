#ifndef JSONSOURCE_H
#define JSONSOURCE_H

#include "statechart/json/jsonexceptions.h"

#include <algorithm>
#include <cstdint>
#include <istream>
#include <limits>
#include <streambuf>
#include <string>
#include <string_view>
#include <utility>

/// The bytes of a stream, taken from its buffer, and how many of them were taken.
class JsonSource
{
public:
    explicit JsonSource(std::istream& input) : m_buffer(input.rdbuf())
    {
        if (m_buffer == nullptr)
            return;
        const std::streamoff start = m_buffer->pubseekoff(0, std::ios_base::cur, std::ios_base::in);
        m_position = start < 0 ? 0 : static_cast<std::uint64_t>(start);
        m_here = m_buffer->sgetc();
    }

    static constexpr int end = std::char_traits<char>::eof();

    /// The next byte as an unsigned one, or `end`.
    int here() const { return m_here; }

    int take()
    {
        ++m_position;
        return std::exchange(m_here, m_buffer->snextc());
    }

    /// Appends the bytes up to the next quote or backslash, or as many of them as the buffer holds ready, but
    /// one at least. To be called where a plain byte comes next.
    void takePlainBytes(std::string& text)
    {
        const std::string_view ready = GetArea::of(*m_buffer);
        if (ready.empty()) { // a buffer that hands out byte by byte
            text += static_cast<char>(take());
            return;
        }
        const auto* const special =
            std::find_if(ready.begin(), ready.end(), [](char byte) { return byte == '"' || byte == '\\'; });
        const auto length = static_cast<std::size_t>(special - ready.begin());
        text.append(ready.substr(0, length));
        GetArea::skip(*m_buffer, length);
        m_position += length;
        m_here = m_buffer->sgetc();
    }

    void skipWhitespace()
    {
        while (m_here == ' ' || m_here == '\n' || m_here == '\r' || m_here == '\t')
            take();
    }

    void takeIf(int byte, const char* reason)
    {
        if (m_here != byte)
            fail(reason);
        take();
    }

    [[noreturn]] void fail(const char* reason) const { throw JsonReadException(reason, m_position); }

private:
    /// The way to what a buffer holds ready, which is for derived classes only.
    struct GetArea : std::streambuf
    {
        static std::string_view of(const std::streambuf& buffer)
        {
            const char* const start = (buffer.*&GetArea::gptr)();
            const auto length = static_cast<std::size_t>((buffer.*&GetArea::egptr)() - start);
            return {start, std::min<std::size_t>(length, std::numeric_limits<int>::max())};
        }

        static void skip(std::streambuf& buffer, std::size_t length)
        {
            (buffer.*&GetArea::gbump)(static_cast<int>(length));
        }
    };

    std::streambuf* m_buffer;
    std::uint64_t m_position = 0;
    int m_here = end;
};

#endif
