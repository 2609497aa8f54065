#ifndef LSPMESSAGES_H
#define LSPMESSAGES_H

#include "halvwidgetsexport.h"
#include "languageclient/records/lsprecord.h"

#include <QMetaType>
#include <stdexcept>

/// The messages of JSON-RPC 2.0.
namespace Halvorin::LSP {

using LSPMessageParams = std::variant<QJsonObject, QJsonArray>;

/// What all messages have in common.
class HALVWIDGETS_EXPORT LSPMessage : public LSPRecord<>
{
public:
    /// Writes "jsonrpc". A message that is made of an object takes the object as it is.
    LSPMessage();

    LSP_RECORD_WITH_OWN_CONSTRUCTORS(LSPMessage, LSP_OPTIONAL(QString, jsonrpc, setJsonrpc));
};

/// A message that asks for a response.
class HALVWIDGETS_EXPORT LSPRequestMessage : public LSPRecord<LSPMessage>
{
    LSP_RECORD(LSPRequestMessage,
               LSP_REQUIRED(int, id, setId),
               LSP_REQUIRED(QString, method, setMethod),
               LSP_OPTIONAL(LSPMessageParams, params, setParams));

public:
    LSPRequestMessage(int id, const QString& method, const LSPAbstractJsonObject& params);

    void setId(const QString& id);
};

/// A message that asks for none.
class HALVWIDGETS_EXPORT LSPNotificationMessage : public LSPRecord<LSPMessage>
{
    LSP_RECORD(LSPNotificationMessage,
               LSP_REQUIRED(QString, method, setMethod),
               LSP_OPTIONAL(LSPMessageParams, params, setParams));

public:
    LSPNotificationMessage(const QString& method, const LSPAbstractJsonObject& params);
};

/// Why a request failed.
class HALVWIDGETS_EXPORT LSPResponseError : public LSPRecord<>
{
    LSP_RECORD(LSPResponseError,
               LSP_REQUIRED(int, code, setCode),
               LSP_REQUIRED(QString, message, setMessage),
               LSP_OPTIONAL(QJsonValue, data, setData));

public:
    void setData(std::nullptr_t) { setData(QJsonValue(QJsonValue::Null)); }
    void setData(int data) { setData(QJsonValue(data)); }
    void setData(double data) { setData(QJsonValue(data)); }
    void setData(bool data) { setData(QJsonValue(data)); }
    void setData(const QString& data) { setData(QJsonValue(data)); }
    void setData(const QJsonArray& data) { setData(QJsonValue(data)); }
    void setData(const QJsonObject& data) { setData(QJsonValue(data)); }
};

/// The answer to a request: a result or an error.
class HALVWIDGETS_EXPORT LSPResponseMessage : public LSPRecord<LSPMessage>
{
public:
    /// A reply to nothing: its id is null.
    LSPResponseMessage();
    explicit LSPResponseMessage(int id);

    /// Has the request's id as it stands there, also where it is a text.
    LSPResponseMessage(const LSPRequestMessage& request, const QJsonValue& result);
    LSPResponseMessage(const LSPRequestMessage& request, const LSPResponseError& error);

    LSP_RECORD_WITH_OWN_CONSTRUCTORS(LSPResponseMessage,
                                     LSP_REQUIRED(int, id, setId),
                                     LSP_OPTIONAL(QJsonValue, result, setResult),
                                     LSP_OPTIONAL(LSPResponseError, error, setError));
};

/// A response's error, thrown to who waits for its result. what() is the error's message.
class HALVWIDGETS_EXPORT LSPRequestException : public std::runtime_error
{
public:
    explicit LSPRequestException(const LSPResponseError& error);
};

} // namespace Halvorin::LSP

Q_DECLARE_METATYPE(Halvorin::LSP::LSPMessage)
Q_DECLARE_METATYPE(Halvorin::LSP::LSPRequestMessage)
Q_DECLARE_METATYPE(Halvorin::LSP::LSPNotificationMessage)
Q_DECLARE_METATYPE(Halvorin::LSP::LSPResponseMessage)

#endif
