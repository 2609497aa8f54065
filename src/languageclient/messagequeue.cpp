#include "languageclient/messagequeue.h"

namespace Halvorin::LSP {

namespace {

/// The document that a message changes; null for any other message.
QString changedDocument(const QJsonObject& message)
{
    if (message.value(QLatin1String("method")) != QLatin1String("textDocument/didChange"))
        return {};
    const QJsonObject params = message.value(QLatin1String("params")).toObject();
    return params.value(QLatin1String("textDocument")).toObject().value(QLatin1String("uri")).toString();
}

} // namespace

const LSPMessage& QueuedMessage::asMessage() const
{
    return std::visit([](const LSPMessage& alternative) -> const LSPMessage& { return alternative; },
                      message);
}

void MessageQueue::append(const LSPMessage& message, LSPClientStatus requiredStatus)
{
    if (const auto* request = dynamic_cast<const LSPRequestMessage*>(&message)) {
        m_messages.push_back({*request, requiredStatus, {}});
    } else if (const auto* notification = dynamic_cast<const LSPNotificationMessage*>(&message)) {
        m_messages.push_back({*notification, requiredStatus, changedDocument(message.toJson())});
        dropOldChange(m_messages.back().changedDocument);
    }
}

void MessageQueue::dropOldChange(const QString& document)
{
    if (document.isNull())
        return;
    int count = 0;
    auto oldest = m_messages.end();
    for (auto queued = m_messages.begin(); queued != m_messages.end(); ++queued) {
        if (queued->changedDocument != document)
            continue;
        if (++count == 1)
            oldest = queued;
    }
    if (count > changesKept)
        m_messages.erase(oldest);
}

} // namespace Halvorin::LSP
