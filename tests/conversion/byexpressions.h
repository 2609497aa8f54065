#ifndef BYEXPRESSIONS_H
#define BYEXPRESSIONS_H

#include "conversion/core/conversionlibrary.h"
#include "conversion/core/nesting.h"

/// Converts block by block in the plain way: all expressions search the whole rest at every step.
template <class Library>
class ByExpressions : public Library
{
public:
    QString convertBlocks(const QStringRef& source, std::size_t) const override
    {
        const Halvorin::Text::Nesting nesting;
        QStringRef remaining = source;
        QString result;
        Halvorin::Text::ConversionMatch match = this->nextBlockMatch(remaining, 0);
        while (!remaining.isEmpty() && match.hasMatch()) {
            result += match.convertMatched();
            remaining = remaining.mid(match.end());
            match = this->nextBlockMatch(remaining, 0);
        }
        return result;
    }
    using Library::convertBlocks;
};

#endif
