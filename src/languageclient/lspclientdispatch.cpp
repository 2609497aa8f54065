// What LSPAbstractClient does with what the server sends.

#include "languageclient/lspabstractclient.h"

#include <QJsonArray>
#include <stdexcept>

namespace Halvorin::LSP {

using enum LSPClientStatus;

namespace {

/// An error inside the one who answers, as JSON-RPC 2.0 numbers it.
constexpr int internalError = -32603;

LSPMessageType messageType(const QJsonObject& params)
{
    const int number = params.value(QLatin1String("type")).toInt();
    const bool known = number >= static_cast<int>(LSPMessageType::Error) &&
                       number <= static_cast<int>(LSPMessageType::Debug);
    return known ? static_cast<LSPMessageType>(number) : LSPMessageType::Unknown;
}

std::vector<LSPConfigurationItem> items(const LSPRequestMessage& request)
{
    const auto items = LSPConfigurationRequest(request.toJson()).configurationParams().items();
    if (!items)
        throw std::runtime_error("the items are no array of objects");
    return *items;
}

} // namespace

void LSPAbstractClient::dispatch(const QJsonDocument& document)
{
    const QJsonObject message = document.object();
    if (message.contains(QLatin1String("method")))
        dispatchMethod(message.value(QLatin1String("method")).toString(), message);
    else if (message.contains(QLatin1String("id")))
        Q_EMIT responseReceived(LSPResponseMessage(message));
}

void LSPAbstractClient::dispatchMethod(const QString& method, const QJsonObject& message)
{
    // "window/showDocument" and whatever else is not here is taken without an answer.
    const QJsonObject params = message.value(QLatin1String("params")).toObject();
    const QString text = params.value(QLatin1String("message")).toString();
    if (method == QLatin1String("window/logMessage"))
        Q_EMIT logMessage(messageType(params), text);
    else if (method == QLatin1String("window/showMessage"))
        Q_EMIT showMessage(messageType(params), text);
    else if (method == QLatin1String("textDocument/publishDiagnostics"))
        Q_EMIT publishDiagnosticsNotification(LSPPublishDiagnosticsNotification(message));
    else if (method == QLatin1String("workspace/configuration") && message.contains(QLatin1String("id")))
        answerConfiguration(LSPRequestMessage(message));
}

void LSPAbstractClient::answerConfiguration(const LSPRequestMessage& request)
{
    try {
        QJsonArray values;
        for (const LSPConfigurationItem& item : items(request))
            values.append(configurationValue(item));
        respond(request, values, Ready);
    } catch (const std::exception& error) {
        respondError(request, internalError, QString::fromUtf8(error.what()), Ready);
    } catch (...) {
        respondError(request, internalError, QStringLiteral("unknown error"), Ready);
    }
}

} // namespace Halvorin::LSP
