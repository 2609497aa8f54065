#include "framesocket.h"

#include <algorithm>
#include <arpa/inet.h>
#include <charconv>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <stdexcept>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr std::size_t receivedAtOnce = 1 << 16;

int checked(int result)
{
    if (result < 0)
        throw std::runtime_error("a socket of the benchmark failed");
    return result;
}

void switchOn(int descriptor, int option)
{
    const int on = 1;
    ::setsockopt(descriptor, IPPROTO_TCP, option, &on, sizeof on);
}

sockaddr_in loopback(std::uint16_t port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

int numberBehind(std::string_view text, std::string_view name, int otherwise)
{
    const std::size_t found = text.find(name);
    if (found == std::string_view::npos)
        return otherwise;
    int number = otherwise;
    std::from_chars(text.data() + found + name.size(), text.data() + text.size(), number);
    return number;
}

} // namespace

std::string frameOf(std::string_view body)
{
    return "Content-Length: " + std::to_string(body.size()) + "\r\n\r\n" + std::string(body);
}

int idOf(std::string_view body)
{
    return numberBehind(body, "\"id\":", -1);
}

FrameSocket FrameSocket::connectTo(std::uint16_t port)
{
    const int descriptor = checked(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = loopback(port);
    checked(::connect(descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address));
    return FrameSocket(descriptor);
}

FrameSocket::FrameSocket(int descriptor) : m_descriptor(descriptor)
{
    switchOn(m_descriptor, TCP_NODELAY);
}

FrameSocket::FrameSocket(FrameSocket&& other) noexcept
    : m_descriptor(std::exchange(other.m_descriptor, -1)), m_buffer(std::move(other.m_buffer)),
      m_position(other.m_position)
{}

FrameSocket::~FrameSocket()
{
    if (m_descriptor >= 0)
        ::close(m_descriptor);
}

void FrameSocket::write(std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::send(m_descriptor, bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (count <= 0)
            return; // the other end is gone: the next reading says so
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

std::string_view FrameSocket::read()
{
    constexpr std::string_view headerEnd = "\r\n\r\n";
    for (;;) {
        const std::string_view pending = std::string_view(m_buffer).substr(m_position);
        if (const std::size_t end = pending.find(headerEnd); end != std::string_view::npos) {
            const auto length =
                static_cast<std::size_t>(numberBehind(pending.substr(0, end), "Content-Length: ", 0));
            const std::size_t start = end + headerEnd.size();
            if (pending.size() - start >= length) {
                m_position += start + length;
                return pending.substr(start, length);
            }
        }
        if (!receive())
            return {};
    }
}

bool FrameSocket::receive()
{
    m_buffer.erase(0, std::exchange(m_position, 0));
    const std::size_t before = m_buffer.size();
    m_buffer.resize(before + receivedAtOnce);
    switchOn(m_descriptor, TCP_QUICKACK); // the system falls back by itself
    const ssize_t count = ::recv(m_descriptor, m_buffer.data() + before, receivedAtOnce, 0);
    m_buffer.resize(before + static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return count > 0;
}

Listener::Listener() : m_descriptor(checked(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)))
{
    const sockaddr_in address = loopback(0);
    checked(::bind(m_descriptor, reinterpret_cast<const sockaddr*>(&address), sizeof address));
    checked(::listen(m_descriptor, 1));
}

Listener::~Listener()
{
    ::close(m_descriptor);
}

std::uint16_t Listener::port() const
{
    sockaddr_in address{};
    socklen_t size = sizeof address;
    checked(::getsockname(m_descriptor, reinterpret_cast<sockaddr*>(&address), &size));
    return ntohs(address.sin_port);
}

FrameSocket Listener::accept() const
{
    return FrameSocket(checked(::accept4(m_descriptor, nullptr, nullptr, SOCK_CLOEXEC)));
}
