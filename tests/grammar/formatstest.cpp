// The grammar for Python in each of the three forms that a grammar may have.

#include "grammar/grammartester.h"
#include "support/temporaryfolder.h"
#include "testfolders.h"

#include <QCborMap>
#include <QCborValue>
#include <QFile>
#include <QJsonArray>
#include <QXmlStreamWriter>

using namespace Halvorin::TextMate;

namespace {

QByteArray contentOf(const QString& path)
{
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void writeValue(QXmlStreamWriter& xml, const QJsonValue& value)
{
    if (value.isObject()) {
        const QJsonObject object = value.toObject();
        xml.writeStartElement(QStringLiteral("dict"));
        for (auto member = object.begin(); member != object.end(); ++member) {
            xml.writeTextElement(QStringLiteral("key"), member.key());
            writeValue(xml, *member);
        }
        xml.writeEndElement();
    } else if (value.isArray()) {
        xml.writeStartElement(QStringLiteral("array"));
        for (const QJsonValue element : value.toArray())
            writeValue(xml, element);
        xml.writeEndElement();
    } else {
        xml.writeTextElement(QStringLiteral("string"), value.toString());
    }
}

std::string propertyList(const QJsonObject& object)
{
    QByteArray text;
    QXmlStreamWriter xml(&text);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("plist"));
    writeValue(xml, object);
    xml.writeEndElement();
    xml.writeEndDocument();
    return text.toStdString();
}

Texts tokensOf(const std::filesystem::path& grammar, const QString& source)
{
    GrammarProcessor processor(std::make_shared<const Grammar>(QString::fromStdString(grammar.string())));
    Continuation continuation;
    Texts texts;
    for (const QString& line : source.split(QLatin1Char('\n'))) {
        TokenList tokens = processor.tokenise(line + QLatin1Char('\n'), continuation);
        continuation = tokens.takeContinuation();
        for (const Token& token : tokens.tokens())
            texts.push_back(tokenText(token));
    }
    return texts;
}

} // namespace

TEST(GrammarFormats, GiveTheSameTokens)
{
    const QByteArray json =
        contentOf(QStringLiteral(PROJECT_FOLDER "/resources/grammars/python.tmLanguage.json"));
    const QJsonObject object = QJsonDocument::fromJson(json).object();
    const TemporaryFolder folder;
    const auto asJson = folder.write("python.json", json.toStdString());
    const auto asCbor =
        folder.write("python.dat", QCborValue(QCborMap::fromJsonObject(object)).toCbor().toStdString());
    const auto asPropertyList = folder.write("python.tmLanguage", propertyList(object));
    for (const char* name : {"interpolated.py", "docstrings.py", "functions.py"}) {
        const QString source =
            QString::fromUtf8(contentOf(QStringLiteral(TEST_SOURCE_FOLDER "/golden/") + QLatin1String(name)));
        const Texts tokens = tokensOf(asJson, source);
        EXPECT_GT(tokens.size(), 100U);
        EXPECT_EQ(tokensOf(asCbor, source), tokens) << name;
        EXPECT_EQ(tokensOf(asPropertyList, source), tokens) << name;
    }
}
