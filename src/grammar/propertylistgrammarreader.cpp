#include "grammar/propertylistgrammarreader.h"

#include <QDebug>
#include <QXmlStreamReader>
#include <array>

namespace Halvorin::TextMate {

namespace {

/// Rules in rules beyond this depth are passed over, as deep JSON is refused.
constexpr int maximumDepth = 500;

class PropertyListReader
{
public:
    explicit PropertyListReader(QIODevice& device) : m_xml(&device) {}

    GrammarData read()
    {
        GrammarData data;
        refuseEntities();
        if (m_xml.isStartElement() && m_xml.name() == QLatin1String("plist") &&
            m_xml.readNextStartElement() && m_xml.name() == QLatin1String("dict"))
            readDictionary([this, &data](const QString& key) { return readGrammarKey(data, key); });
        else if (!m_xml.hasError())
            m_xml.raiseError(QStringLiteral("there is no dict in a plist"));
        return data;
    }

    /// What is wrong with the XML, and where; empty when nothing is.
    QString error() const
    {
        return m_xml.hasError()
                   ? QStringLiteral("%1 (line %2)").arg(m_xml.errorString()).arg(m_xml.lineNumber())
                   : QString();
    }

private:
    /// Goes to the first element. No grammar needs entities of its own, and a few of them make a large text
    /// of a small file.
    void refuseEntities()
    {
        while (!m_xml.atEnd() && m_xml.readNext() != QXmlStreamReader::StartElement) {
            if (!m_xml.entityDeclarations().isEmpty())
                m_xml.raiseError(QStringLiteral("entities are declared"));
        }
    }

    /// Reads the value of each key of a dict. `readValue` takes the element that the reader stands on and
    /// gives true, or leaves it alone.
    template <class ReadValue>
    void readDictionary(const ReadValue& readValue)
    {
        if (m_xml.name() != QLatin1String("dict"))
            return m_xml.skipCurrentElement();
        while (m_xml.readNextStartElement()) {
            if (m_xml.name() != QLatin1String("key")) {
                m_xml.skipCurrentElement();
                continue;
            }
            const QString key = m_xml.readElementText(QXmlStreamReader::SkipChildElements);
            if (m_xml.readNextStartElement() && !readValue(key)) {
                qDebug().nospace().noquote() << "skipped: " << key;
                m_xml.skipCurrentElement();
            }
        }
    }

    template <class ReadElement>
    void readArray(const ReadElement& readElement)
    {
        if (m_xml.name() != QLatin1String("array"))
            return m_xml.skipCurrentElement();
        while (m_xml.readNextStartElement())
            readElement();
    }

    /// A value that is no text is an empty expression, which matches nothing.
    template <class Expression>
    Expression readExpression()
    {
        if (m_xml.name() == QLatin1String("string"))
            return Expression(readText());
        m_xml.skipCurrentElement();
        return Expression();
    }

    QString readText() { return m_xml.readElementText(QXmlStreamReader::SkipChildElements); }

    bool readGrammarKey(GrammarData& data, const QString& key)
    {
        if (key == QLatin1String("scopeName"))
            data.scopeName = readText();
        else if (key == QLatin1String("fileTypes"))
            readArray([this, &data] { data.fileTypes.append(readText()); });
        else if (key == QLatin1String("foldingStartMarker"))
            data.foldingStartMarker = compileExpression(readText());
        else if (key == QLatin1String("foldingStopMarker"))
            data.foldingStopMarker = compileExpression(readText());
        else if (key == QLatin1String("patterns"))
            data.patterns = readRules();
        else if (key == QLatin1String("firstLineMatch"))
            data.firstLineMatch = compileExpression(readText());
        else if (key == QLatin1String("repository"))
            readDictionary([this, &data](const QString& name) {
                data.repository[name] = readRule();
                return true;
            });
        else
            return false;
        return true;
    }

    std::vector<GrammarRule> readRules()
    {
        std::vector<GrammarRule> rules;
        readArray([this, &rules] { rules.push_back(readRule()); });
        return rules;
    }

    GrammarRule readRule()
    {
        GrammarRule rule;
        if (m_depth == maximumDepth) {
            m_xml.skipCurrentElement();
            return rule;
        }
        ++m_depth;
        readDictionary([this, &rule](const QString& key) { return readRuleKey(rule, key); });
        --m_depth;
        return rule;
    }

    bool readRuleKey(GrammarRule& rule, const QString& key)
    {
        struct Key
        {
            const char* name;
            void (*take)(PropertyListReader& reader, GrammarRule& into);
        };

        static constexpr std::array<Key, 10> keys{{
            {"name", [](PropertyListReader& reader, GrammarRule& into) { into.name = reader.readText(); }},
            {"match", [](PropertyListReader& reader,
                         GrammarRule& into) { into.match = reader.readExpression<GrammarExpression>(); }},
            {"begin", [](PropertyListReader& reader,
                         GrammarRule& into) { into.begin = reader.readExpression<GrammarExpression>(); }},
            {"end", [](PropertyListReader& reader,
                       GrammarRule& into) { into.end = reader.readExpression<EndGrammarExpression>(); }},
            {"contentName",
             [](PropertyListReader& reader, GrammarRule& into) { into.contentName = reader.readText(); }},
            {"captures",
             [](PropertyListReader& reader, GrammarRule& into) { into.captures = reader.readCaptures(); }},
            {"beginCaptures", [](PropertyListReader& reader,
                                 GrammarRule& into) { into.beginCaptures = reader.readCaptures(); }},
            {"endCaptures",
             [](PropertyListReader& reader, GrammarRule& into) { into.endCaptures = reader.readCaptures(); }},
            {"include",
             [](PropertyListReader& reader, GrammarRule& into) { into.include = reader.readText(); }},
            {"patterns",
             [](PropertyListReader& reader, GrammarRule& into) { into.patterns = reader.readRules(); }},
        }};
        for (const Key& row : keys) {
            if (key == QLatin1String(row.name)) {
                row.take(*this, rule);
                return true;
            }
        }
        return false;
    }

    GrammarCaptures readCaptures()
    {
        GrammarCaptures captures;
        readDictionary([this, &captures](const QString& key) {
            bool isNumber = false;
            const int number = key.toInt(&isNumber);
            if (isNumber && m_xml.name() == QLatin1String("dict"))
                captures[number] = readCapture();
            else
                m_xml.skipCurrentElement();
            return true;
        });
        return captures;
    }

    GrammarCapture readCapture()
    {
        GrammarCapture capture;
        QStringList extraKeys;
        readDictionary([this, &capture, &extraKeys](const QString& key) {
            if (key == QLatin1String("name")) {
                capture.name = readText();
            } else {
                extraKeys.append(key);
                m_xml.skipCurrentElement();
            }
            return true;
        });
        if (!extraKeys.isEmpty())
            qDebug().nospace().noquote() << "extra keys: " << extraKeys.join(QLatin1String(", "));
        return capture;
    }

    QXmlStreamReader m_xml;
    int m_depth = 0;
};

} // namespace

GrammarData readPropertyListGrammar(QIODevice& device, QString& error)
{
    PropertyListReader reader(device);
    GrammarData data = reader.read();
    error = reader.error();
    return data;
}

} // namespace Halvorin::TextMate
