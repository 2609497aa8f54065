#ifndef BENCHCLIENT_H
#define BENCHCLIENT_H

#include "languageclient/lsppythonclient.h"
#include "threadpeer.h"

#include <QCoreApplication>
#include <QTcpServer>
#include <concepts>
#include <memory>
#include <optional>

/// Runs the event loop until the condition holds.
void runUntil(const std::predicate auto& condition)
{
    while (!condition())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

/// A client that is ready, with a peer that goes through the handshake and then its exchange.
class BenchClient
{
public:
    explicit BenchClient(const ThreadPeer::Exchange& exchange)
        : m_peer(m_client->findChild<QTcpServer*>()->serverPort(), [exchange](FrameSocket& socket) {
              shakeHands(socket);
              exchange(socket);
          })
    {
        runUntil([this] { return m_client->status() == Halvorin::LSP::LSPClientStatus::Ready; });
    }
    ~BenchClient() { m_client.reset(); } // ends the connection, and so the peer

    Halvorin::LSP::LSPPythonClient& operator*() const { return *m_client; }
    Halvorin::LSP::LSPPythonClient* operator->() const { return m_client.get(); }

private:
    std::unique_ptr<Halvorin::LSP::LSPPythonClient> m_client =
        std::make_unique<Halvorin::LSP::LSPPythonClient>();
    ThreadPeer m_peer;
};

/// A bare socket in the client's place.
class BareClient
{
public:
    explicit BareClient(const ThreadPeer::Exchange& exchange) : m_peer(m_listener.port(), exchange) {}

    FrameSocket& operator*() { return *m_socket; }
    FrameSocket* operator->() { return &*m_socket; }

private:
    Listener m_listener;
    ThreadPeer m_peer; // its destructor waits for the thread, which waits for the end of the socket
    std::optional<FrameSocket> m_socket{m_listener.accept()};
};

#endif
