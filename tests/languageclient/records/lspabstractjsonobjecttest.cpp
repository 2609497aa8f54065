#include "languageclient/records/lspabstractjsonobject.h"
#include "languageclient/records/completion.h"
#include "languageclient/records/diagnostics.h"

#include "jsonobject.h"

#include <gmock/gmock.h>

using namespace Halvorin::LSP;

namespace {

const QLatin1String aKey("a");
const QLatin1String bKey("b");

/// A record written without a table.
class ByHand : public LSPAbstractJsonObject
{
public:
    using LSPAbstractJsonObject::setValue;

    QStringList missingParameters() const override
    {
        QStringList missing{QStringLiteral("first")};
        require(aKey, missing);
        require(bKey, missing);
        return missing;
    }
};

/// One that needs nothing.
class Undemanding : public LSPAbstractJsonObject
{};

} // namespace

TEST(AbstractJsonObject, StartsEmpty)
{
    const Undemanding record;
    EXPECT_EQ(record.toJson(), QJsonObject());
    EXPECT_FALSE(record.contains(aKey));
    EXPECT_EQ(record.missingParameters(), QStringList());
}

TEST(AbstractJsonObject, GivesTheDefaultForAKeyThatIsAbsentOnly)
{
    ByHand record;
    EXPECT_TRUE(record.value(aKey).isNull());
    EXPECT_EQ(record.value(aKey, 5), QJsonValue(5));
    record.setValue(aKey, QJsonValue::Null);
    EXPECT_TRUE(record.contains(aKey));
    EXPECT_TRUE(record.value(aKey, 5).isNull());
    record.setValue(aKey, 6);
    EXPECT_EQ(record.value(aKey, 5), QJsonValue(6));
}

TEST(AbstractJsonObject, AddsAComplaintForEachKeyThatIsAbsent)
{
    ByHand record;
    EXPECT_EQ(record.missingParameters(),
              QStringList({QStringLiteral("first"),
                           QStringLiteral("Missing parameter: a"),
                           QStringLiteral("Missing parameter: b")}));
    record.setValue(aKey, QJsonValue::Null);
    EXPECT_EQ(record.missingParameters(),
              QStringList({QStringLiteral("first"), QStringLiteral("Missing parameter: b")}));
}

TEST(AbstractJsonObject, TakesAnyObjectWhenNothingIsRequired)
{
    Undemanding record;
    EXPECT_TRUE(record.fromJson(jsonObject(R"({"a": 1})")));
    EXPECT_TRUE(record.fromJson(jsonObject("{}")));
    EXPECT_EQ(record.toJson(), QJsonObject());
}

TEST(AbstractJsonObject, ReadsThroughTheBaseAsTheRecordItIs)
{
    LSPCompletionItem item(QStringLiteral("old"));
    LSPAbstractJsonObject& record = item;
    EXPECT_FALSE(record.fromJson(jsonObject(R"({"kind": 1})")));
    EXPECT_EQ(item.label(), QStringLiteral("old"));
    EXPECT_TRUE(record.fromJson(jsonObject(R"({"label": "new"})")));
    EXPECT_EQ(item.label(), QStringLiteral("new"));
}

TEST(AbstractJsonObject, OneObjectServesAllBasesOfARecord)
{
    LSPCompletionParams params(LSPTextDocumentIdentifier(QUrl(QStringLiteral("file:///a.py"))),
                               LSPPosition(1, 2));
    static_cast<LSPWorkDoneProgressParams&>(params).setWorkDoneToken(1);
    static_cast<LSPPartialResultParams&>(params).setPartialResultToken(QStringLiteral("two"));
    params.setContext(LSPCompletionContext(1));
    const QJsonObject expected = jsonObject(
        R"({"textDocument": {"uri": "file:///a.py"}, "position": {"line": 1, "character": 2},
            "workDoneToken": 1, "partialResultToken": "two", "context": {"triggerKind": 1}})");
    EXPECT_EQ(params.toJson(), expected);
    EXPECT_EQ(static_cast<const LSPTextDocumentPositionParams&>(params).toJson(), expected);
    EXPECT_EQ(static_cast<const LSPPartialResultParams&>(params).toJson(), expected);
}

TEST(AbstractJsonObject, ACopyGoesItsOwnWay)
{
    LSPCompletionItem item(QStringLiteral("one"));
    LSPCompletionItem copy = item;
    copy.setLabel(QStringLiteral("two"));
    EXPECT_EQ(item.label(), QStringLiteral("one"));
    item = copy;
    item.setLabel(QStringLiteral("three"));
    EXPECT_EQ(copy.label(), QStringLiteral("two"));
}
