#ifndef THREADPEER_H
#define THREADPEER_H

#include "framesocket.h"

#include <functional>
#include <thread>

/// The server's end of an exchange, in a thread of its own: connects and runs the exchange, which is to
/// return when the connection ends.
class ThreadPeer
{
public:
    using Exchange = std::function<void(FrameSocket& socket)>;

    ThreadPeer(std::uint16_t port, Exchange exchange)
        : m_thread([port, exchange = std::move(exchange)] {
              FrameSocket socket = FrameSocket::connectTo(port);
              exchange(socket);
          })
    {}

private:
    std::jthread m_thread;
};

/// Answers the client's "initialize" and takes its "initialized".
inline void shakeHands(FrameSocket& socket)
{
    const int id = idOf(socket.read());
    socket.write(
        frameOf(R"({"jsonrpc":"2.0","id":)" + std::to_string(id) + R"(,"result":{"capabilities":{}}})"));
    socket.read();
}

/// Takes whatever comes.
inline void drain(FrameSocket& socket)
{
    while (!socket.read().empty()) {
    }
}

#endif
