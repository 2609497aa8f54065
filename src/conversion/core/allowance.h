#ifndef ALLOWANCE_H
#define ALLOWANCE_H

#include <QtGlobal>

namespace Halvorin::Text {

/// What a conversion may take beyond what grows with its text: one for the conversion that was asked for from
/// outside and all that nest in it, on the thread that they run on.
class Allowance
{
public:
    static Allowance& current()
    {
        static thread_local Allowance allowance;
        return allowance;
    }

    /// For an attempt of an expression that may need many steps, in a text of a length.
    bool takeAttempt(qint64 length)
    {
        // the square of the length, but not less than 1,000,000: on a short text, too, all steps may be used
        m_effort -= qMax(length * length, qint64(1'000'000));
        return m_effort >= 0;
    }

    /// For characters of the result that stand for none of the source; gives how many there may be.
    int takeCharacters(qint64 wanted)
    {
        const qint64 taken = qMin(wanted, m_characters);
        m_characters -= taken;
        return static_cast<int>(taken);
    }
    /// For all of them, or for none and no more.
    bool takeAllCharacters(qint64 wanted) { return takeCharacters(wanted) == wanted; }

private:
    qint64 m_effort = 100'000'000;
    qint64 m_characters = 1'000'000;
};

} // namespace Halvorin::Text

#endif
