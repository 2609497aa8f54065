#ifndef FRAMESOCKET_H
#define FRAMESOCKET_H

#include <cstdint>
#include <string>
#include <string_view>

/// The bytes of a message with this body.
std::string frameOf(std::string_view body);

/// The number under "id" in a message, -1 where there is none.
int idOf(std::string_view body);

/// A blocking socket that speaks frames, with as little as possible around the system's calls: what any
/// client and any server would at least have to do.
class FrameSocket
{
public:
    static FrameSocket connectTo(std::uint16_t port);

    explicit FrameSocket(int descriptor);
    FrameSocket(FrameSocket&& other) noexcept;
    FrameSocket& operator=(FrameSocket&&) = delete;
    ~FrameSocket();

    void write(std::string_view bytes);

    /// The body of the next frame, until the next call; empty when the connection has ended.
    std::string_view read();

private:
    bool receive();

    int m_descriptor;
    std::string m_buffer;
    std::size_t m_position = 0;
};

/// A port of this machine to which one other end connects.
class Listener
{
public:
    Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;
    ~Listener();

    std::uint16_t port() const;
    FrameSocket accept() const;

private:
    int m_descriptor;
};

#endif
