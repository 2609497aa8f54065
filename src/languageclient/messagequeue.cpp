#include "languageclient/messagequeue.h"

#include <algorithm>

namespace Halvorin::LSP {

namespace {

/// The document that a message changes; undefined for any other message.
QJsonValue changedDocument(const QJsonObject& message)
{
    if (message.value(QLatin1String("method")) != QLatin1String("textDocument/didChange"))
        return QJsonValue(QJsonValue::Undefined);
    const QJsonObject params = message.value(QLatin1String("params")).toObject();
    return params.value(QLatin1String("textDocument")).toObject().value(QLatin1String("uri"));
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
        m_messages.push_back({*request, requiredStatus});
    } else if (const auto* notification = dynamic_cast<const LSPNotificationMessage*>(&message)) {
        m_messages.push_back({*notification, requiredStatus});
        dropOldChange(*notification);
    }
}

void MessageQueue::dropOldChange(const LSPNotificationMessage& change)
{
    const QJsonValue document = changedDocument(change.toJson());
    if (document.isUndefined())
        return;
    const auto changesIt = [&document](const QueuedMessage& queued) {
        return changedDocument(queued.asMessage().toJson()) == document;
    };
    if (std::count_if(m_messages.begin(), m_messages.end(), changesIt) > changesKept)
        m_messages.erase(std::find_if(m_messages.begin(), m_messages.end(), changesIt));
}

} // namespace Halvorin::LSP
