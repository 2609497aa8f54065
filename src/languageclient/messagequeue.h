#ifndef MESSAGEQUEUE_H
#define MESSAGEQUEUE_H

#include "languageclient/lspclientstatus.h"
#include "languageclient/records/messages.h"

#include <QString>
#include <utility>
#include <variant>
#include <vector>

namespace Halvorin::LSP {

/// A message that waits for its status, with its class.
struct QueuedMessage
{
    std::variant<LSPRequestMessage, LSPNotificationMessage> message;
    LSPClientStatus requiredStatus;
    QString changedDocument; ///< null unless it changes one

    const LSPMessage& asMessage() const;
};

/// The messages of a client whose status has not been reached, in the order in which they came.
class MessageQueue
{
public:
    /// What may wait of the changes of one document. Each change holds the whole text, so the last ones make
    /// up for those before, and a server that never comes must not fill the memory.
    static constexpr int changesKept = 64;

    /// Appends a copy of a request or a notification; any other message is dropped.
    void append(const LSPMessage& message, LSPClientStatus requiredStatus);

    /// Appends what was taken out before.
    void append(QueuedMessage message) { m_messages.push_back(std::move(message)); }

    /// Gives everything out and is empty.
    std::vector<QueuedMessage> take() { return std::exchange(m_messages, {}); }

private:
    void dropOldChange(const QString& document);

    std::vector<QueuedMessage> m_messages;
};

} // namespace Halvorin::LSP

#endif
