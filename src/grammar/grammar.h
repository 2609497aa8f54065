#ifndef GRAMMAR_H
#define GRAMMAR_H

#include "grammar/grammarrule.h"

#include <QRegularExpression>
#include <QString>
#include <QStringList>
#include <map>
#include <vector>

class QIODevice;

namespace Halvorin::TextMate {

/// How a grammar stands in its file.
enum class GrammarType
{
    Unknown = 0,
    Binary = 1,       ///< CBOR, ".dat"
    Json = 2,         ///< ".json"
    PropertyList = 3, ///< XML, ".tmLanguage"
};

/// What stands in the file of a grammar, as far as this system reads it.
struct GrammarData
{
    QString scopeName;
    QStringList fileTypes;
    QRegularExpression
        foldingStartMarker; ///< these three are kept for who asks; empty when the file has none
    QRegularExpression foldingStopMarker;
    std::vector<GrammarRule> patterns;
    QRegularExpression firstLineMatch;
    std::map<QString, GrammarRule> repository;
};

/// A TextMate grammar: rules and expressions. It does not change once it is loaded, and is shared by all who
/// use it.
///
///     const auto grammar = std::make_shared<const Grammar>(QStringLiteral("python.tmLanguage.json"));
///     GrammarProcessor(grammar).tokenise(QStringLiteral("x = 1\n"));
///
/// Loading never fails: what cannot be opened or read gives a grammar without rules, a rule with an
/// expression that is not valid never matches.
class Grammar
{
public:
    Grammar() = default;
    /// Loads a file; its suffix says how it is read. See type().
    explicit Grammar(const QString& path);
    /// Reads a device that is open; of the unknown type nothing.
    Grammar(QIODevice& device, GrammarType type);
    explicit Grammar(GrammarData data) : m_data(std::move(data)) {}

    /// By the suffix alone, whatever its case.
    static GrammarType type(const QString& path);

    const QString& scopeName() const { return m_data.scopeName; }
    const QStringList& fileTypes() const { return m_data.fileTypes; }
    const QRegularExpression& foldingStartMarker() const { return m_data.foldingStartMarker; }
    const QRegularExpression& foldingStopMarker() const { return m_data.foldingStopMarker; }
    const std::vector<GrammarRule>& patterns() const { return m_data.patterns; }
    const QRegularExpression& firstLineMatch() const { return m_data.firstLineMatch; }
    const std::map<QString, GrammarRule>& repository() const { return m_data.repository; }

    /// Null when the repository has no such rule.
    const GrammarRule* rule(const QString& name) const;

private:
    GrammarData m_data;
};

} // namespace Halvorin::TextMate

#endif
