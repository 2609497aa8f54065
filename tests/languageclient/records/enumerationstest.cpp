#include "languageclient/records/enumerations.h"

#include <gmock/gmock.h>
#include <stdexcept>

using namespace Halvorin::LSP;

namespace {

/// Each text stands for the value of its place, in both directions.
template <class Enumeration>
void expectTexts(const std::vector<const char*>& texts)
{
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto value = static_cast<Enumeration>(i);
        const QString text = QLatin1String(texts[i]);
        EXPECT_EQ(textOf(value), text);
        EXPECT_EQ(enumerationOf<Enumeration>(text), value) << texts[i];
    }
}

template <class Action>
std::string complaintOf(Action action)
{
    try {
        action();
    } catch (const std::exception& exception) {
        return exception.what();
    }
    return "no complaint";
}

} // namespace

TEST(Enumerations, AnyOtherMarkupKindIsPlainText)
{
    expectTexts<LSPMarkupKind>({"plaintext", "markdown"});
    EXPECT_EQ(textOf(LSPMarkupKind(2)), QStringLiteral("plaintext"));
    EXPECT_EQ(textOf(LSPMarkupKind(-1)), QStringLiteral("plaintext"));
    EXPECT_EQ(enumerationOf<LSPMarkupKind>(QStringLiteral("html")), LSPMarkupKind::PlainText);
}

TEST(Enumerations, AnyOtherLanguageIsUnknownInItsOldSpelling)
{
    expectTexts<LSPLanguageId>({"uknown", "c", "cpp", "html", "java", "javascript", "json", "python", "xml"});
    EXPECT_EQ(static_cast<int>(LSPLanguageId::Python), 7);
    EXPECT_EQ(textOf(LSPLanguageId(9)), QStringLiteral("uknown"));
    EXPECT_EQ(textOf(LSPLanguageId(-1)), QStringLiteral("uknown"));
    EXPECT_EQ(enumerationOf<LSPLanguageId>(QStringLiteral("cobol")), LSPLanguageId::Unknown);
}

TEST(Enumerations, ATraceValueIsOffUnlessToldOtherwise)
{
    expectTexts<LSPTraceValue>({"off", "messages", "verbose"});
    EXPECT_EQ(LSPTraceValue(), LSPTraceValue::Off);
    EXPECT_EQ(textOf(LSPTraceValue(3)), QStringLiteral("off"));
    EXPECT_EQ(enumerationOf<LSPTraceValue>(QString()), LSPTraceValue::Off);
}

TEST(Enumerations, AnUnknownTokenModifierIsThrown)
{
    expectTexts<LSPSemanticTokenModifier>({"declaration",
                                           "definition",
                                           "readonly",
                                           "static",
                                           "deprecated",
                                           "abstract",
                                           "async",
                                           "modification",
                                           "documentation",
                                           "defaultLibrary"});
    EXPECT_EQ(semanticTokenModifier(QStringLiteral("async")), LSPSemanticTokenModifier::Async);
    EXPECT_EQ(complaintOf([] { textOf(LSPSemanticTokenModifier(10)); }),
              "unknown semantic token modifier type");
    EXPECT_EQ(complaintOf([] { textOf(LSPSemanticTokenModifier(-1)); }),
              "unknown semantic token modifier type");
    EXPECT_EQ(complaintOf([] { semanticTokenModifier(QStringLiteral("Async")); }),
              "unknown semantic token modifier");
    EXPECT_EQ(enumerationOf<LSPSemanticTokenModifier>(QString()), std::nullopt);
}

TEST(Enumerations, AnUnknownTokenTypeIsThrown)
{
    expectTexts<LSPSemanticTokenType>({"namespace",  "type",          "class",     "enum",     "interface",
                                       "struct",     "typeParameter", "parameter", "variable", "property",
                                       "enumMember", "event",         "function",  "method",   "macro",
                                       "keyword",    "modifier",      "comment",   "string",   "number",
                                       "regexp",     "operator",      "decorator"});
    EXPECT_EQ(semanticTokenType(QStringLiteral("decorator")), LSPSemanticTokenType::Decorator);
    EXPECT_EQ(complaintOf([] { textOf(LSPSemanticTokenType(23)); }), "unknown semantic token type");
    EXPECT_EQ(complaintOf([] { semanticTokenType(QStringLiteral("label")); }), "unknown semantic token type");
    EXPECT_EQ(enumerationOf<LSPSemanticTokenType>(QStringLiteral("label")), std::nullopt);
}
