#ifndef LSPCLIENTSTATUS_H
#define LSPCLIENTSTATUS_H

#include <QMetaType>

namespace Halvorin::LSP {

/// How far a client has come with its server. It goes upward only, until a server connects.
enum class LSPClientStatus : int
{
    NotConnected = 0,
    Connected = 1,    ///< the server's socket is accepted
    Initializing = 2, ///< "initialize" has been sent
    Ready = 3,        ///< the answer to "initialize" has come and "initialized" went out
    ShuttingDown = 4, ///< "shutdown" has been sent
    Exiting = 5,      ///< the answer to "shutdown" has come; "exit" goes out
    Exited = 6,       ///< the server's process has finished
};

/// The kind of a message that a server logs or shows, with the numbers of the protocol.
enum class LSPMessageType : int
{
    Unknown = 0, ///< a number that the protocol does not have
    Error = 1,
    Warning = 2,
    Info = 3,
    Log = 4,
    Debug = 5,
};

} // namespace Halvorin::LSP

Q_DECLARE_METATYPE(Halvorin::LSP::LSPClientStatus)
Q_DECLARE_METATYPE(Halvorin::LSP::LSPMessageType)

#endif
