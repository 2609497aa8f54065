#ifndef RANDOMTEXT_H
#define RANDOMTEXT_H

#include <QString>
#include <QStringList>
#include <random>

/// Texts put together at random of pieces that matter to a rule. The same seed gives the same texts.
class RandomText
{
public:
    explicit RandomText(QStringList pieces, unsigned seed = 1) : m_pieces(std::move(pieces)), m_random(seed)
    {}

    QString next(int mostPieces = 24)
    {
        QString text;
        for (int count = below(mostPieces) + 1; count > 0; --count)
            text += below(100) < 30 ? QStringLiteral("\n") : m_pieces.at(below(m_pieces.size()));
        return text;
    }

private:
    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }

    QStringList m_pieces;
    std::mt19937 m_random;
};

#endif
