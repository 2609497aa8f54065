#ifndef PLAINLIBRARY_H
#define PLAINLIBRARY_H

#include <QRegularExpression>
#include <QString>
#include <functional>
#include <vector>

/// The text conversion written a second time, in the plainest way: expressions alone, all of them over the
/// whole rest at every step, and nothing of the library under test. For short texts.
class PlainLibrary
{
public:
    explicit PlainLibrary(bool isPython);

    /// Sets isGivenUp when the library of expressions reached a limit; then the result says nothing.
    QString convertToHtml(const QString& source);
    bool isGivenUp() const { return m_isGivenUp; }

private:
    using Match = QRegularExpressionMatch;
    /// Gives the text, and may say that the match is longer.
    using Converter = std::function<QString(const Match&, const QString& rest, int& length)>;
    struct Rule
    {
        QRegularExpression expression;
        Converter convert;
    };
    using Rules = std::vector<Rule>;

    void addDocstringRules();
    void addBlockRules();
    void addEnumeratedRules();
    void addInlineRules();
    void add(Rules& rules, const QString& pattern, bool isMultiline,
             std::function<QString(const Match&)> convert);

    Match run(const QRegularExpression& expression, const QString& text, int offset = 0);
    std::vector<Match> all(const QRegularExpression& expression, const QString& text);
    const Rule* best(const Rules& rules, const QString& text, int offset, Match& match);
    QString blocks(const QString& source);
    QString inlined(const QString& source);
    QString withoutParagraphTags(const QString& text);

    QString paragraph(const Match& match, const QString& rest, int& length);
    QString literalBlock(const Match& match);
    QString bulletList(const Match& match);
    QString enumeratedList(const Match& match, char kind, int style, bool isUpper);
    QString definitionList(const Match& match);
    QString seeAlso(const Match& match);
    QString directive(const Match& match);
    QString gridTable(const Match& match);
    QString simpleTable(const Match& match);
    QString simpleRows(const QString& text, const std::vector<std::pair<int, int>>& columns,
                       const QString& tag);
    int romanValue(const QString& index);

    Rules m_blockRules;
    Rules m_inlineRules;
    bool m_isPython;
    bool m_isGivenUp = false;
};

#endif
