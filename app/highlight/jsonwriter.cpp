#include "highlight/tokenwriter.h"

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>

namespace {

using Halvorin::TextMate::Token;

/// The members of each object stand in the order start, length, scopes.
class JsonWriter : public TokenWriter
{
public:
    using TokenWriter::TokenWriter;

    void line(const QString& /*text*/, const std::vector<Token>& tokens) override
    {
        put("[");
        for (const Token& token : tokens) {
            std::string object = &token != &tokens.front() ? "," : "";
            object += "{\"start\":" + std::to_string(token.start) +
                      ",\"length\":" + std::to_string(token.length) + ",\"scopes\":[";
            for (const QString& scope : token.scopes)
                object.append(object.back() == '[' ? "" : ",").append(quoted(scope));
            put(object + "]}");
        }
        put("]\n");
    }

private:
    const std::string& quoted(const QString& scope)
    {
        const auto known = m_quoted.constFind(scope);
        if (known != m_quoted.cend())
            return *known;
        const QByteArray array = QJsonDocument(QJsonArray{scope}).toJson(QJsonDocument::Compact);
        return *m_quoted.insert(scope, array.mid(1, array.size() - 2).toStdString());
    }

    QHash<QString, std::string> m_quoted; ///< a grammar has a few hundred scopes
};

} // namespace

std::unique_ptr<TokenWriter> makeJsonWriter(TextSink sink)
{
    return std::make_unique<JsonWriter>(std::move(sink));
}
