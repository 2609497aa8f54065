#include "grammar/grammar.h"

#include "grammar/grammarlog.h"
#include "grammar/jsongrammarreader.h"
#include "grammar/propertylistgrammarreader.h"

#include <QCborMap>
#include <QCborValue>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <array>

namespace Halvorin::TextMate {

namespace {

const auto notAnObject = QStringLiteral("there is no object in it");

struct Suffix
{
    const char* text;
    GrammarType type;
};

/// In the order in which they are tried.
constexpr std::array<Suffix, 3> suffixes{{
    {".json", GrammarType::Json},
    {".dat", GrammarType::Binary},
    {".tmLanguage", GrammarType::PropertyList},
}};

void reportUnreadable(const QString& reason)
{
    logDiagnostic(QStringLiteral("unable to read grammar: ") + reason);
}

GrammarData readJson(const QByteArray& text)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (error.error != QJsonParseError::NoError)
        reportUnreadable(error.errorString());
    else if (!document.isObject())
        reportUnreadable(notAnObject);
    return readJsonGrammar(document.object());
}

GrammarData readBinary(const QByteArray& bytes)
{
    QCborParserError error;
    const QCborValue value = QCborValue::fromCbor(bytes, &error);
    if (error.error != QCborError::NoError)
        reportUnreadable(error.errorString());
    else if (!value.isMap())
        reportUnreadable(notAnObject);
    return readJsonGrammar(value.toMap().toJsonObject());
}

GrammarData readPropertyList(QIODevice& device)
{
    QString error;
    GrammarData data = readPropertyListGrammar(device, error);
    if (!error.isEmpty())
        reportUnreadable(error);
    return data;
}

GrammarData read(QIODevice& device, GrammarType type)
{
    switch (type) {
    case GrammarType::Json:
        return readJson(device.readAll());
    case GrammarType::Binary:
        return readBinary(device.readAll());
    case GrammarType::PropertyList:
        return readPropertyList(device);
    case GrammarType::Unknown:
        break;
    }
    return {};
}

GrammarData load(const QString& path)
{
    const GrammarType type = Grammar::type(path);
    QFile file(path);
    // Text mode would take bytes out of CBOR that look like ends of lines.
    const QIODevice::OpenMode mode =
        type == GrammarType::Binary ? QIODevice::ReadOnly : QIODevice::ReadOnly | QIODevice::Text;
    if (type == GrammarType::Unknown || !file.open(mode))
        return {};
    return read(file, type);
}

} // namespace

Grammar::Grammar(const QString& path) : m_data(load(path)) {}

Grammar::Grammar(QIODevice& device, GrammarType type) : m_data(read(device, type)) {}

GrammarType Grammar::type(const QString& path)
{
    for (const Suffix& suffix : suffixes) {
        if (path.endsWith(QLatin1String(suffix.text), Qt::CaseInsensitive))
            return suffix.type;
    }
    return GrammarType::Unknown;
}

const GrammarRule* Grammar::rule(const QString& name) const
{
    const auto found = m_data.repository.find(name);
    return found == m_data.repository.end() ? nullptr : &found->second;
}

} // namespace Halvorin::TextMate
