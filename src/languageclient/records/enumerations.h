#ifndef LSPENUMERATIONS_H
#define LSPENUMERATIONS_H

#include "halvwidgetsexport.h"

#include <QString>
#include <optional>

/// Enumerations that stand as texts in JSON, as the Language Server Protocol 3.17 names them. To add one: the
/// enumeration here, its table and its two functions in the source file.
namespace Halvorin::LSP {

/// How a documentation text is written.
enum class LSPMarkupKind
{
    PlainText,
    Markdown
};

/// The language of a document.
enum class LSPLanguageId
{
    Unknown,
    C,
    Cpp,
    Html,
    Java,
    JavaScript,
    Json,
    Python,
    Xml
};

/// How much the server tells of what it does.
enum class LSPTraceValue
{
    Off,
    Messages,
    Verbose
};

/// What else is known of a semantic token; the number is the bit's.
enum class LSPSemanticTokenModifier
{
    Declaration,
    Definition,
    ReadOnly,
    Static,
    Deprecated,
    Abstract,
    Async,
    Modification,
    Documentation,
    DefaultLibrary
};

/// What a semantic token is.
enum class LSPSemanticTokenType
{
    Namespace,
    Type,
    Class,
    Enum,
    Interface,
    Struct,
    TypeParameter,
    Parameter,
    Variable,
    Property,
    EnumMember,
    Event,
    Function,
    Method,
    Macro,
    Keyword,
    Modifier,
    Comment,
    String,
    Number,
    Regexp,
    Operator,
    Decorator
};

/// The text of a value. One outside the enumeration gives "plaintext", "uknown" or "off" for the first three,
/// and is thrown as std::out_of_range for a semantic token's modifier or type.
HALVWIDGETS_EXPORT QString textOf(LSPMarkupKind kind);
HALVWIDGETS_EXPORT QString textOf(LSPLanguageId language);
HALVWIDGETS_EXPORT QString textOf(LSPTraceValue trace);
HALVWIDGETS_EXPORT QString textOf(LSPSemanticTokenModifier modifier);
HALVWIDGETS_EXPORT QString textOf(LSPSemanticTokenType type);

/// The value of a text, if it names one. Every text names a markup kind, a language and a trace value: one
/// that is not in the table the plain text, the unknown language, no trace.
template <class Enumeration>
std::optional<Enumeration> enumerationOf(const QString& text);

template <>
HALVWIDGETS_EXPORT std::optional<LSPMarkupKind> enumerationOf(const QString& text);
template <>
HALVWIDGETS_EXPORT std::optional<LSPLanguageId> enumerationOf(const QString& text);
template <>
HALVWIDGETS_EXPORT std::optional<LSPTraceValue> enumerationOf(const QString& text);
template <>
HALVWIDGETS_EXPORT std::optional<LSPSemanticTokenModifier> enumerationOf(const QString& text);
template <>
HALVWIDGETS_EXPORT std::optional<LSPSemanticTokenType> enumerationOf(const QString& text);

/// The value of a text; an unknown name is thrown as std::out_of_range.
LSPSemanticTokenModifier semanticTokenModifier(const QString& text);
LSPSemanticTokenType semanticTokenType(const QString& text);

} // namespace Halvorin::LSP

#endif
