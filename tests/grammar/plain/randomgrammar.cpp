#include "grammar/plain/randomgrammar.h"

#include <QJsonArray>
#include <QStringList>

namespace {

const QStringList atoms{"a",    "b",       "c",     "\\(",    "\\)",    "[ab]",       "[^a]",
                        "(a)",  "(b)?",    "(?=a)", "(?=b)",  "(?<=a)", "(?<!b)",     "\\b",
                        "$",    "^",       "\\n",   "a*",     "b+",     "(a|b)",      "(?:c|ab)",
                        "\\w+", ".",       "x",     "(c)",    "\\s",    "(?!a)",      "(\\w)",
                        "\\Kb", "(?=(b))", "é",     "(?i:A)", "(?i)B",  "\U0001F600", "[é\U0001F600]"};

/// Those that are compiled when they are tried.
const QStringList lateOnes{"\\G",   "(?!\\G)", "\\Ga",     "\\A",       "\\Ab", "\\1",  "\\1c",    "a\\2",
                           "\\Gb*", "(a)\\1",  "(?=\\G)a", "(?<=\\G)a", "\\2",  "\\10", "(?!\\A)b"};

constexpr int repositorySize = 4;

} // namespace

QJsonObject RandomGrammar::grammar()
{
    QJsonObject repository;
    for (int number = 0; number < repositorySize; ++number)
        repository["r" + QString::number(number)] = rule(1);
    return {{"scopeName", "root"}, {"patterns", rules(1, 0)}, {"repository", repository}};
}

QString RandomGrammar::line()
{
    static const QStringList characters{"a", "a", "a", "b", "b", "b", "c",
                                        "(", ")", "x", " ", "é", "A", "\U0001F600"};
    QString text;
    for (int left = below(9); left > 0; --left)
        text += characters.at(below(characters.size()));
    return text + '\n';
}

QString RandomGrammar::expression(bool isEnd)
{
    const int kind = below(100);
    if (kind < (isEnd ? 22 : 10))
        return lateOnes.at(below(lateOnes.size()));
    if (kind == 99)
        return QStringLiteral("("); // is not valid
    if (kind == 98)
        return QStringLiteral("");
    QString text;
    for (int left = 1 + below(3); left > 0; --left)
        text += atoms.at(below(atoms.size()));
    return text;
}

QString RandomGrammar::name()
{
    return "n" + QString::number(below(5));
}

QJsonObject RandomGrammar::captures()
{
    QJsonObject object;
    for (int left = 1 + below(3); left > 0; --left)
        object[QString::number(below(4))] =
            below(5) > 0 ? QJsonObject{{"name", "c" + name()}} : QJsonObject();
    return object;
}

QJsonObject RandomGrammar::rule(int depth)
{
    QJsonObject rule;
    const int kind = below(10);
    if (kind == 8) {
        rule["include"] =
            below(4) == 0 ? QStringLiteral("$self") : "#r" + QString::number(below(repositorySize + 1));
        return rule;
    }
    if (below(3) > 0)
        rule["name"] = name();
    if (kind < 4) {
        rule["match"] = expression(false);
    } else if (kind < 8) {
        rule["begin"] = expression(false);
        if (below(12) > 0)
            rule["end"] = expression(true);
        if (below(2) > 0)
            rule["contentName"] = "in" + name();
        if (below(15) == 0)
            rule["match"] = expression(false);
        for (const char* key : {"beginCaptures", "endCaptures"}) {
            if (below(3) == 0)
                rule[QLatin1String(key)] = captures();
        }
    }
    if (below(3) == 0)
        rule["captures"] = captures();
    if (kind >= 4 && below(5) > 0)
        rule["patterns"] = rules(0, depth + 1);
    return rule;
}

QJsonArray RandomGrammar::rules(int least, int depth)
{
    QJsonArray array;
    constexpr int mostDepth = 3;
    for (int left = depth > mostDepth ? 0 : least + below(4); left > 0; --left)
        array.append(rule(depth));
    return array;
}
