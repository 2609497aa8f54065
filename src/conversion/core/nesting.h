#ifndef NESTING_H
#define NESTING_H

#include "conversion/core/allowance.h"

namespace Halvorin::Text {

/// Counts the conversions that are under way inside each other, for as long as it stands: rules convert parts
/// of their text by the library again, and a text that nests without end must not overflow the stack. The
/// outermost one has a new allowance.
class Nesting
{
public:
    Nesting()
    {
        if (++depth() == 1)
            Allowance::current() = {};
    }
    Nesting(const Nesting&) = delete;
    Nesting& operator=(const Nesting&) = delete;
    ~Nesting() { --depth(); }

    bool isTooDeep() const { return depth() > most; }

private:
    static constexpr int most = 200;

    static int& depth()
    {
        static thread_local int count = 0;
        return count;
    }
};

} // namespace Halvorin::Text

#endif
