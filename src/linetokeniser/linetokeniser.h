#ifndef LINETOKENISER_H
#define LINETOKENISER_H

#include "grammar/token.h"
#include "halvwidgetsexport.h"

#include <QString>
#include <memory>
#include <vector>

namespace Halvorin::TextMate {

/// The tokens of a text by a TextMate grammar, a line after the other, from the first:
///
///     LineTokeniser tokeniser(LibraryResources::pythonGrammar());
///     for (const Token& token : tokeniser.nextLine(QStringLiteral("x = 1")))
///
/// Nothing throws, and each line comes to an end, whatever the grammar. One thread at a time.
class HALVWIDGETS_EXPORT LineTokeniser
{
public:
    /// Of a grammar in a file or the resources; its suffix says how it is read.
    explicit LineTokeniser(const QString& grammarPath);
    LineTokeniser(LineTokeniser&&) noexcept;
    LineTokeniser& operator=(LineTokeniser&&) noexcept;
    ~LineTokeniser();

    /// Whether a grammar's name ends in one of the suffixes that can be read.
    static bool canRead(const QString& grammarPath);

    /// Without rules, which is what a file has that is no grammar, a line is one token.
    bool hasRules() const;

    /// By their start; of two that overlap the later one is the inner one. The line is given without its end;
    /// the tokens see one, "\n", and some cover it. They stand until the next call.
    const std::vector<Token>& nextLine(const QString& line);

private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace Halvorin::TextMate

#endif
