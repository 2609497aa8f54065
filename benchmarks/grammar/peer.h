#ifndef PEER_H
#define PEER_H

#include <QProcess>

/// The other engine in a process of its own. It has read the sources, and tokenises all of them when it is
/// asked to; reading and starting do not count.
class Peer
{
public:
    Peer();
    ~Peer();

    /// "warm" with the grammar as it is, "cold" with one that is loaded anew.
    /// @throws std::runtime_error when the other engine has gone
    void run(const char* how);

private:
    void awaitAnswer();

    QProcess m_process;
};

#endif
