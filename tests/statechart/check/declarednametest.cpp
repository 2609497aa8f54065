#include "statechart/check/declaredname.h"

#include "statechart/json/jsonreader.h"

#include <gtest/gtest.h>
#include <sstream>

namespace {

JsonObject definitionOf(const std::string& text)
{
    std::istringstream stream(text);
    return asObject(readDocument(stream));
}

TEST(DeclaredNames, StandInThreeNamespaces)
{
    const JsonObject definition = definitionOf(R"({"inputs": {"x": {"type": "pin"}}, "outputs": {},
        "parameters": {"x": {"type": "double"}}, "variables": {"x": {"type": "bool"}, "y": {"type": "int"}}})");
    DeclaredNames names(definition);
    EXPECT_EQ(names.find("x", NameRole::bus)->kind, NameKind::inputPin);
    EXPECT_EQ(names.find("x", NameRole::parameter)->type, DataType::real);
    EXPECT_EQ(names.find("x", NameRole::variable)->type, DataType::boolean);
    EXPECT_EQ(names.find("y", NameRole::parameter), nullptr);
    EXPECT_EQ(names.find("y", NameRole::pin), nullptr);
    EXPECT_EQ(names.all().size(), 4u);
}

TEST(DeclaredNames, HaveTheOutputDelayAlways)
{
    const JsonObject definition;
    DeclaredNames names(definition);
    const DeclaredName* const delay = names.find("OUTPUT_DELAY", NameRole::parameter);
    ASSERT_NE(delay, nullptr);
    EXPECT_EQ(delay->type, DataType::real);
    EXPECT_TRUE(delay->isUsed);
    EXPECT_TRUE(names.all().empty());
}

TEST(DeclaredNames, HaveTypeAndWidthAsFarAsTheyAreRight)
{
    const JsonObject definition = definitionOf(R"({"outputs": {
        "a": {"type": "bus", "width": 4, "dataType": "int64_t"}, "b": {"type": "bus", "width": 0, "dataType": "int"},
        "c": {"type": "pin", "width": 4, "dataType": "int64_t"}},
        "parameters": {"p": {"type": "int"}}, "variables": {"v": {"type": "char"}}})");
    DeclaredNames names(definition);
    EXPECT_EQ(names.find("a", NameRole::bus)->width, 4);
    EXPECT_EQ(names.find("a", NameRole::bus)->type, DataType::integer64);
    EXPECT_EQ(names.find("b", NameRole::bus)->width, std::nullopt);
    EXPECT_EQ(names.find("b", NameRole::bus)->type, std::nullopt);
    EXPECT_EQ(names.find("c", NameRole::bus)->width, std::nullopt);
    EXPECT_EQ(names.find("p", NameRole::parameter)->type, std::nullopt);
    EXPECT_EQ(names.find("v", NameRole::variable)->type, std::nullopt);
}

TEST(DeclaredNames, AreBrokenWhereTheCompilerTellsOfThem)
{
    const JsonObject definition =
        definitionOf(R"({"inputs": {"a": {}, "b": 1, "c": {"type": "pin"}, "d": {"type": "pin"}},
        "outputs": {"d": {"type": "pin"}}, "variables": {"v": null}})");
    DeclaredNames names(definition);
    for (const char* name : {"a", "b", "d"}) {
        EXPECT_TRUE(names.find(name, NameRole::pin)->isBroken) << name;
        EXPECT_TRUE(fits(names.find(name, NameRole::pin)->kind, NameRole::drivenBus)) << name;
    }
    EXPECT_FALSE(names.find("c", NameRole::pin)->isBroken);
    EXPECT_TRUE(names.find("v", NameRole::variable)->isBroken);
}

TEST(DeclaredNames, AreAllKnownUnlessASectionIsMissingOrWrong)
{
    const JsonObject right = definitionOf(R"({"outputs": {}})");
    const JsonObject wrong = definitionOf(R"({"variables": 1, "parameters": {}})");
    EXPECT_TRUE(DeclaredNames(right).isComplete(NameRole::pin));
    EXPECT_TRUE(DeclaredNames(right).isComplete(NameRole::variable));
    EXPECT_FALSE(DeclaredNames(wrong).isComplete(NameRole::bus));
    EXPECT_FALSE(DeclaredNames(wrong).isComplete(NameRole::variable));
    EXPECT_TRUE(DeclaredNames(wrong).isComplete(NameRole::parameter));
}

TEST(DeclaredNames, AreUsedByRoleByNameOrAll)
{
    const JsonObject definition = definitionOf(R"({"inputs": {"a": {"type": "pin"}},
        "outputs": {"b": {"type": "pin"}, "c": {"type": "bus"}}, "variables": {"b": {"type": "int"}}})");
    DeclaredNames names(definition);
    names.useAny(NameRole::drivenPin);
    EXPECT_FALSE(names.find("a", NameRole::pin)->isUsed);
    EXPECT_TRUE(names.find("b", NameRole::pin)->isDriven);
    EXPECT_FALSE(names.find("c", NameRole::pin)->isDriven);
    EXPECT_FALSE(names.find("b", NameRole::variable)->isUsed);
    names.useEverywhere("b");
    EXPECT_TRUE(names.find("b", NameRole::variable)->isUsed);
    names.useAll();
    EXPECT_TRUE(names.find("a", NameRole::pin)->isUsed);
    EXPECT_TRUE(names.find("c", NameRole::pin)->isDriven);
}

} // namespace
