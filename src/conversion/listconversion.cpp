#include "conversion/core/allowance.h"
#include "conversion/core/expression.h"
#include "conversion/rstconversionlibrary.h"
#include "conversion/scanners/definitionitems.h"
#include "conversion/scanners/expressions.h"

#include <algorithm>
#include <vector>

namespace Halvorin::Text {

namespace {

/// The lines of a text without their ends, which may be "\r\n"; no empty one behind the last end.
std::vector<QStringRef> linesOf(const QStringRef& text)
{
    std::vector<QStringRef> lines;
    for (int start = 0; start < text.size();) {
        const int found = text.indexOf(QLatin1Char('\n'), start);
        const int end = found < 0 ? text.size() : found;
        QStringRef line = text.mid(start, end - start);
        if (line.endsWith(QLatin1Char('\r')))
            line.chop(1);
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

const char* bulletStyle(QChar type)
{
    switch (type.unicode()) {
    case u'+':
        return "plus";
    case u'-':
        return "minus";
    default:
        return "star";
    }
}

bool isAllSpaces(const QStringRef& line)
{
    return std::ranges::all_of(line, [](QChar c) { return isSpace(c.unicode()); });
}

} // namespace

QString RSTConversionLibrary::convertBulletList(const Captures& list) const
{
    const QChar type = list.group(0).at(0);
    const std::vector<QStringRef> lines = linesOf(list.group(1));
    const auto isItem = [type](const QStringRef& line) { return line.startsWith(type); };

    QString result = QLatin1String("<ul class=\"") + QLatin1String(bulletStyle(type)) + QLatin1String("\">");
    for (auto line = lines.begin(); line != lines.end(); ++line) {
        if (line->isEmpty())
            continue;
        if (isItem(*line)) {
            const bool hasSpace = line->size() > 1 && isSpace(line->at(1).unicode());
            result += QLatin1String("<li>") + convertBlocks(line->mid(hasSpace ? 2 : 1), 0) +
                      QLatin1String("</li>");
            continue;
        }
        // Other lines are taken together, up to the next item. Then reading goes on behind the first of them,
        // so that they are taken again without it, unless there was no item.
        const auto end = std::find_if(line, lines.end(), isItem);
        if (!std::all_of(line, end, isAllSpaces)) {
            QString joined = line->toString();
            for (auto other = line + 1; other != end; ++other)
                joined += QLatin1Char(' ') + *other;
            result += convertBlocks(joined, 0);
            if (end != lines.end() && Allowance::current().takeAllCharacters(joined.size()))
                continue;
        } // else the text converts to nothing, however often
        line = end - 1;
    }
    return result += QLatin1String("</ul>");
}

QString RSTConversionLibrary::convertDefinitionList(const Captures& list) const
{
    static const RuleExpression item = Expressions::definitionItem();
    const QString separator = QStringLiteral(" : ");
    const QStringRef source = list.whole();
    QString result = QStringLiteral("<dl class=\"deflist\">");
    for (const Hit& hit : findAll(source, item, findDefinitionItems)) {
        const Captures captures(source, hit);
        const QString term = convertInline(captures.group(0), 0);
        result += QLatin1String("<dt>");
        if (const int found = term.indexOf(separator); found >= 0)
            result += term.leftRef(found) + QLatin1String(" : <span class=\"classifier\">") +
                      term.midRef(found + separator.size()) + QLatin1String("</span>");
        else
            result += term;
        result += QLatin1String("</dt><dd>") + convertBlocks(captures.group(1), 0) + QLatin1String("</dd>");
    }
    return result += QLatin1String("</dl>");
}

} // namespace Halvorin::Text
