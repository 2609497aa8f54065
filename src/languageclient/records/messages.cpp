#include "languageclient/records/messages.h"

namespace Halvorin::LSP {

LSPMessage::LSPMessage()
{
    setJsonrpc(QLatin1String("2.0"));
}

LSPRequestMessage::LSPRequestMessage(int id, const QString& method, const LSPAbstractJsonObject& params)
    : LSPRequestMessage(id, method)
{
    setParams(params.toJson());
}

void LSPRequestMessage::setId(const QString& id)
{
    setValue(QLatin1String("id"), id);
}

LSPNotificationMessage::LSPNotificationMessage(const QString& method, const LSPAbstractJsonObject& params)
    : LSPNotificationMessage(method)
{
    setParams(params.toJson());
}

LSPResponseMessage::LSPResponseMessage()
{
    setValue(QLatin1String("id"), QJsonValue::Null);
}

LSPResponseMessage::LSPResponseMessage(int id)
{
    setId(id);
}

LSPResponseMessage::LSPResponseMessage(const LSPRequestMessage& request, const QJsonValue& result)
{
    setValue(QLatin1String("id"), request.value(QLatin1String("id")));
    setResult(result);
}

LSPResponseMessage::LSPResponseMessage(const LSPRequestMessage& request, const LSPResponseError& error)
{
    setValue(QLatin1String("id"), request.value(QLatin1String("id")));
    setError(error);
}

LSPRequestException::LSPRequestException(const LSPResponseError& error)
    : std::runtime_error(error.message().toStdString())
{}

} // namespace Halvorin::LSP
