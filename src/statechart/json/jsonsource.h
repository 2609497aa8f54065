#ifndef JSONSOURCE_H
#define JSONSOURCE_H

#include "statechart/json/bytesearch.h"
#include "statechart/json/jsonexceptions.h"

#include <algorithm>
#include <cstdint>
#include <istream>
#include <limits>
#include <streambuf>
#include <string_view>

/// The bytes of a stream, looked at where its buffer holds them ready, and how many of them were taken. The
/// stream itself goes on when the next bytes are asked of it, and in the end.
class JsonSource
{
public:
    explicit JsonSource(std::istream& input) : m_buffer(input.rdbuf())
    {
        if (m_buffer == nullptr)
            return;
        const std::streamoff start = m_buffer->pubseekoff(0, std::ios_base::cur, std::ios_base::in);
        m_before = start < 0 ? 0 : static_cast<std::uint64_t>(start);
    }

    JsonSource(const JsonSource&) = delete;
    JsonSource& operator=(const JsonSource&) = delete;
    ~JsonSource() { moveStream(); }

    static constexpr int end = std::char_traits<char>::eof();

    /// The next byte as an unsigned one, or `end`.
    int here() { return m_next != m_end || fetch() ? static_cast<unsigned char>(*m_next) : end; }

    /// To be called where here() is not the end.
    char take() { return *m_next++; }

    /// Takes the bytes that stand ready up to the next quote or backslash. They stay where they are until
    /// more is asked for than stands ready.
    std::string_view takePlainBytes()
    {
        const auto flags = [](std::uint64_t word) { return bytesEqual(word, '"') | bytesEqual(word, '\\'); };
        const auto isSpecial = [](char byte) { return byte == '"' || byte == '\\'; };
        const char* const start = m_next;
        m_next = findByte(m_next, m_end, flags, isSpecial);
        return {start, static_cast<std::size_t>(m_next - start)};
    }

    /// Takes the next byte if it stands ready and is this one.
    bool takeIfReady(char byte)
    {
        if (m_next == m_end || *m_next != byte)
            return false;
        ++m_next;
        return true;
    }

    void skipWhitespace()
    {
        for (int byte = here(); byte == ' ' || byte == '\n' || byte == '\r' || byte == '\t'; byte = here())
            ++m_next;
    }

    void takeIf(int byte, const char* reason)
    {
        if (here() != byte)
            fail(reason);
        ++m_next;
    }

    [[noreturn]] void fail(const char* reason) const
    {
        throw JsonReadException(reason, m_before + static_cast<std::uint64_t>(m_next - m_start));
    }

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

    /// Moves the stream behind what was taken.
    void moveStream()
    {
        const auto taken = static_cast<std::size_t>(m_next - m_start);
        if (taken == 0)
            return;
        if (m_start == &m_single)
            m_buffer->sbumpc();
        else
            GetArea::skip(*m_buffer, taken);
        m_before += taken;
        m_start = m_next;
    }

    /// Has the buffer make more bytes ready; tells whether there are any.
    bool fetch()
    {
        if (m_buffer == nullptr)
            return false;
        moveStream();
        const int next = m_buffer->sgetc();
        std::string_view ready;
        if (next != end)
            ready = GetArea::of(*m_buffer);
        if (next != end && ready.empty()) { // a buffer that hands out byte by byte
            m_single = std::char_traits<char>::to_char_type(next);
            ready = {&m_single, 1};
        }
        m_start = m_next = ready.data();
        m_end = m_start + ready.size();
        return next != end;
    }

    std::streambuf* m_buffer;
    const char* m_start = nullptr; // where the stream stands; what is ready up to m_next was taken
    const char* m_next = nullptr;
    const char* m_end = nullptr;
    std::uint64_t m_before = 0; // the position of m_start
    char m_single = 0;
};

#endif
