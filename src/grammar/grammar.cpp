#include "grammar/grammar.h"

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

GrammarData read(QIODevice& device, GrammarType type)
{
    switch (type) {
    case GrammarType::Json:
        return readJsonGrammar(QJsonDocument::fromJson(device.readAll()).object());
    case GrammarType::Binary:
        return readJsonGrammar(QCborValue::fromCbor(device.readAll()).toMap().toJsonObject());
    case GrammarType::PropertyList:
        return readPropertyListGrammar(device);
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
