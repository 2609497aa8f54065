#include "languageclient/records/enumerations.h"

#include <QLatin1String>
#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace Halvorin::LSP {

namespace {

/// The texts of an enumeration, from the value 0.
constexpr const char* markupKinds[] = {"plaintext", "markdown"};
/// Misspelt as it has always been sent.
constexpr const char* languageIds[] = {
    "uknown", "c", "cpp", "html", "java", "javascript", "json", "python", "xml"};
constexpr const char* traceValues[] = {"off", "messages", "verbose"};
constexpr const char* modifiers[] = {"declaration",
                                     "definition",
                                     "readonly",
                                     "static",
                                     "deprecated",
                                     "abstract",
                                     "async",
                                     "modification",
                                     "documentation",
                                     "defaultLibrary"};
constexpr const char* tokenTypes[] = {
    "namespace", "type",     "class",      "enum",   "interface", "struct",   "typeParameter", "parameter",
    "variable",  "property", "enumMember", "event",  "function",  "method",   "macro",         "keyword",
    "modifier",  "comment",  "string",     "number", "regexp",    "operator", "decorator"};

template <std::size_t Size>
const char* find(const char* const (&texts)[Size], int value)
{
    return value >= 0 && static_cast<std::size_t>(value) < Size ? texts[value] : nullptr;
}

template <class Enumeration, std::size_t Size>
std::optional<Enumeration> find(const char* const (&texts)[Size], const QString& text)
{
    const auto found = std::find_if(std::begin(texts), std::end(texts), [&](const char* candidate) {
        return text == QLatin1String(candidate);
    });
    if (found == std::end(texts))
        return {};
    return static_cast<Enumeration>(found - std::begin(texts));
}

template <class Enumeration, std::size_t Size>
QString textOrFirst(const char* const (&texts)[Size], Enumeration value)
{
    const char* text = find(texts, static_cast<int>(value));
    return QLatin1String(text ? text : texts[0]);
}

template <class Enumeration, std::size_t Size>
QString textOrThrow(const char* const (&texts)[Size], Enumeration value, const char* complaint)
{
    if (const char* text = find(texts, static_cast<int>(value)))
        return QLatin1String(text);
    throw std::out_of_range(complaint);
}

template <class Enumeration>
Enumeration valueOrThrow(const QString& text, const char* complaint)
{
    if (const auto value = enumerationOf<Enumeration>(text))
        return *value;
    throw std::out_of_range(complaint);
}

} // namespace

QString textOf(LSPMarkupKind kind)
{
    return textOrFirst(markupKinds, kind);
}
QString textOf(LSPLanguageId language)
{
    return textOrFirst(languageIds, language);
}
QString textOf(LSPTraceValue trace)
{
    return textOrFirst(traceValues, trace);
}

QString textOf(LSPSemanticTokenModifier modifier)
{
    return textOrThrow(modifiers, modifier, "unknown semantic token modifier type");
}

QString textOf(LSPSemanticTokenType type)
{
    return textOrThrow(tokenTypes, type, "unknown semantic token type");
}

template <>
std::optional<LSPMarkupKind> enumerationOf(const QString& text)
{
    return find<LSPMarkupKind>(markupKinds, text).value_or(LSPMarkupKind::PlainText);
}

template <>
std::optional<LSPLanguageId> enumerationOf(const QString& text)
{
    return find<LSPLanguageId>(languageIds, text).value_or(LSPLanguageId::Unknown);
}

template <>
std::optional<LSPTraceValue> enumerationOf(const QString& text)
{
    return find<LSPTraceValue>(traceValues, text).value_or(LSPTraceValue::Off);
}

template <>
std::optional<LSPSemanticTokenModifier> enumerationOf(const QString& text)
{
    return find<LSPSemanticTokenModifier>(modifiers, text);
}

template <>
std::optional<LSPSemanticTokenType> enumerationOf(const QString& text)
{
    return find<LSPSemanticTokenType>(tokenTypes, text);
}

LSPSemanticTokenModifier semanticTokenModifier(const QString& text)
{
    return valueOrThrow<LSPSemanticTokenModifier>(text, "unknown semantic token modifier");
}

LSPSemanticTokenType semanticTokenType(const QString& text)
{
    return valueOrThrow<LSPSemanticTokenType>(text, "unknown semantic token type");
}

} // namespace Halvorin::LSP
