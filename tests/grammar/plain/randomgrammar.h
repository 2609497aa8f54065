#ifndef RANDOMGRAMMAR_H
#define RANDOMGRAMMAR_H

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <random>

/// Small grammars of all kinds of rules and expressions, and lines of the few characters that they speak of.
/// The same seed gives the same ones.
class RandomGrammar
{
public:
    explicit RandomGrammar(unsigned seed) : m_random(seed) {}

    QJsonObject grammar();
    QString line();

private:
    int below(int limit) { return static_cast<int>(m_random() % static_cast<unsigned>(limit)); }
    QString expression(bool isEnd);
    QString name();
    QJsonObject captures();
    QJsonObject rule(int depth);
    QJsonArray rules(int least, int depth);

    std::mt19937 m_random;
};

#endif
