#include "HalvCore/datetime.h"
#include "HalvCore/exception.h"
#include "HalvCore/jsonelement.h"
#include "HalvCore/mimetype.h"
#include "HalvCore/uuid.h"

using namespace Halvorin::System;

TEST(UUID, IsNewEachTime)
{
    EXPECT_NE(UUID(), UUID());
    EXPECT_EQ(UUID().toStdString().size(), 36U);
}

TEST(UUID, ReadsItsTextForm)
{
    const UUID id;
    EXPECT_EQ(UUID(id.toStdString()), id);
    EXPECT_EQ(UUID("{" + id.toStdString() + "}"), id);
    EXPECT_STREQ(UUID("nonsense").c_str(), "00000000-0000-0000-0000-000000000000");
}

TEST(MIMEType, KeepsItsText)
{
    EXPECT_EQ(MIMEType("application/json").toString(), String("application/json"));
}

TEST(DateTime, KeepsItsSeconds)
{
    EXPECT_EQ(DateTime(-5).secondsSinceEpoch(), -5);
}

TEST(JsonElement, GivesMembersElementsAndStrings)
{
    const JsonElement document = JsonElement::parse(R"({"name": "a", "items": ["x", "y"]})").value();
    EXPECT_EQ(document["name"].getString(), String("a"));
    EXPECT_TRUE(document.getObject().contains("items"));
    EXPECT_FALSE(document.getObject().contains("other"));
    std::string items;
    for (const JsonElement& item : document["items"].getArray())
        items += item.getString().toLegacyUtf8();
    EXPECT_EQ(items, "xy");
}

TEST(JsonElement, SaysWhatItIsNot)
{
    const JsonElement document = JsonElement::parse("[1]").value();
    EXPECT_TRUE(document.isArray());
    EXPECT_THROW(document.getObject(), Exception);
    EXPECT_THROW(document.getString(), Exception);
    EXPECT_THROW(document["a"], Exception);
    EXPECT_THROW(JsonElement::parse("{}").value()["a"], Exception);
    EXPECT_THROW(JsonElement::parse("{}").value().getArray(), Exception);
}

TEST(JsonElement, RefusesTextThatIsNoJson)
{
    EXPECT_FALSE(JsonElement::parse("{").hasValue());
    EXPECT_FALSE(JsonElement::parse("").hasValue());
    EXPECT_FALSE(JsonElement::parse(String(std::string(100000, '['))).hasValue());
}
