// The list of rules is the precedence table; a rule is known by the compiled form that it links.

#include "actionlanguage/buildrules.h"
#include "actionlanguage/functions/functionlibrary.h"
#include "languagetester.h"
#include "support/concatenated.h"
#include "support/jsontext.h"

namespace {

struct RuleName
{
    std::string_view rule;
    std::string_view op;
};

constexpr RuleName beforeFunctions[] = {{"sincdec", "++"}, {"sincdec", "--"}};

constexpr RuleName behindFunctions[] = {
    {"pincdec", "++"}, {"pincdec", "--"}, {"unop", "+"},    {"unop", "-"},    {"unop", "!"},
    {"unop", "~"},     {"binop", "*"},    {"binop", "/"},   {"binop", "%"},   {"binop", "+"},
    {"binop", "-"},    {"binop", "<<"},   {"binop", ">>"},  {"binop", "<"},   {"binop", "<="},
    {"binop", ">"},    {"binop", ">="},   {"binop", "=="},  {"binop", "!="},  {"binop", "&"},
    {"binop", "^"},    {"binop", "|"},    {"binop", "&&"},  {"binop", "||"},  {"assign", "="},
    {"assign", "+="},  {"assign", "-="},  {"assign", "*="}, {"assign", "/="}, {"assign", "%="},
    {"assign", "<<="}, {"assign", ">>="}, {"assign", "&="}, {"assign", "^="}, {"assign", "|="},
    {"comma", ""},
};

JsonValue formOf(const RuleName& name)
{
    JsonObject form{{"rule", name.rule}};
    if (!name.op.empty())
        form.insert("op", name.op);
    return form;
}

std::vector<JsonValue> expectedForms()
{
    std::vector<JsonValue> forms;
    for (const RuleName& name : beforeFunctions)
        forms.push_back(formOf(name));
    for (const auto& function : constructFunctionRules())
        forms.push_back(JsonObject{{"rule", "call"}, {"func", function->name()}});
    for (const RuleName& name : behindFunctions)
        forms.push_back(formOf(name));
    return forms;
}

TEST(ExpressionRules, StandInTheOrderOfPrecedence)
{
    const std::vector<ExpressionRule> rules = constructExpressionRules(constructFunctionRules());
    const std::vector<JsonValue> forms = expectedForms();
    ASSERT_EQ(rules.size(), forms.size());
    for (std::size_t rule = 0; rule < rules.size(); ++rule)
        for (std::size_t form = 0; form < forms.size(); ++form)
            EXPECT_EQ(rules[rule]->canLink(forms[form]), rule == form)
                << rule << ": " << toString(forms[form]);
}

TEST(ExpressionRules, AreThirtyEightBesideTheFunctions)
{
    EXPECT_EQ(constructExpressionRules({}).size(), 38u);
    EXPECT_GE(constructExpressionRules(constructFunctionRules()).capacity(),
              38u + constructFunctionRules().size());
}

TEST(ExpressionRules, RefuseToLinkWhatIsNoFormOfTheirs)
{
    const std::vector<ExpressionRule> rules = constructExpressionRules(constructFunctionRules());
    for (const char* text :
         {"null", "1", "1.5", "\"binop\"", "true", "[]", "{}", R"({"rule": null})", R"({"rule": "binop"})",
          R"({"rule": "binop", "op": 1})", R"({"op": "+"})", R"({"rule": "call"})",
          R"({"rule": "call", "func": 1})", R"({"rule": "binop ", "op": "+"})"})
        for (const ExpressionRule& rule : rules)
            EXPECT_FALSE(rule->canLink(jsonOf(text))) << text;
}

TEST(LiteralRules, AreTriedInTheirOrder)
{
    const BuildRules rules({});
    const char* forms[] = {"1", "1.5", "\"text\"", "true", R"({"rule": "charliteral", "value": "a"})"};
    ASSERT_EQ(rules.literalRules().size(), std::size(forms));
    for (std::size_t rule = 0; rule < std::size(forms); ++rule)
        for (std::size_t form = 0; form < std::size(forms); ++form)
            EXPECT_EQ(rules.literalRules()[rule]->canLink(jsonOf(forms[form])), rule == form);
}

} // namespace
