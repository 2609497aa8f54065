#include "conversion/romannumeral.h"
#include "conversion/rstconversionlibrary.h"
#include "conversion/scanners/expressions.h"

#include <limits>
#include <optional>
#include <vector>

namespace Halvorin::Text {

namespace {

/// Items that are numbered one after the other.
template <class Value>
struct ListGroup
{
    Value start;
    std::vector<QString> items;
};

/// How the list of one kind of marker is read and written.
template <class Value>
struct ListKind
{
    Marker marker;
    Value (*valueOf)(const QStringRef& index);
    std::optional<Value> (*following)(Value value);
    Value first; ///< the start that goes without saying
    char type;
    QString (*textOf)(Value value);
};

template <class Value>
QString toHtml(const ListGroup<Value>& group, const ListKind<Value>& kind)
{
    QString result = QLatin1String("<ol type=\"") + QLatin1Char(kind.type) + QLatin1Char('"');
    if (group.start != kind.first)
        result += QLatin1String(" start=\"") + kind.textOf(group.start) + QLatin1Char('"');
    result += QLatin1Char('>');
    for (const QString& item : group.items)
        result += QLatin1String("<li>") + item + QLatin1String("</li>");
    return result += QLatin1String("</ol>");
}

template <class Value>
QString convertList(const ConversionLibrary& library, const QStringRef& xrows, const QStringRef& arows,
                    const ListKind<Value>& kind)
{
    const auto marked = findAll(xrows, Expressions::markedItem(kind.marker),
                                [&](const SourceText& rows) { return findMarkedItems(rows, kind.marker); });
    const auto automatic =
        findAll(arows, Expressions::automaticItem(kind.marker.form),
                [&](const SourceText& rows) { return findAutomaticItems(rows, kind.marker.form); });

    std::vector<ListGroup<Value>> groups;
    std::optional<Value> expected;
    for (const Hit& hit : marked) {
        const Captures item(xrows, hit);
        const Value value = kind.valueOf(item.group(0));
        if (groups.empty() || value != expected)
            groups.push_back({value, {}});
        groups.back().items.push_back(library.convertBlocks(item.group(1), 0));
        expected = kind.following(value);
    }
    if (groups.empty())
        return QString();
    for (const Hit& hit : automatic)
        groups.back().items.push_back(library.convertBlocks(Captures(arows, hit).group(1), 0));

    QString result;
    for (const ListGroup<Value>& group : groups)
        result += toHtml(group, kind);
    return result;
}

std::optional<qlonglong> numberBehind(qlonglong value)
{
    if (value == std::numeric_limits<qlonglong>::max())
        return std::nullopt;
    return value + 1;
}

/// 0 for one that no number can hold.
qlonglong numberOf(const QStringRef& index)
{
    return index.toLongLong();
}

QString textOfNumber(qlonglong value)
{
    return QString::number(value);
}

} // namespace

QString RSTConversionLibrary::convertEnumeratedListNumeric(const QStringRef& xrows, const QStringRef& arows,
                                                           EnumeratedListStyle style) const
{
    const Marker marker = {EnumeratedKind::numeric, style};
    return convertList<qlonglong>(*this, xrows, arows,
                                  {marker, numberOf, numberBehind, 1, '1', textOfNumber});
}

QString RSTConversionLibrary::convertEnumeratedListRomanNumeral(const QStringRef& xrows,
                                                                const QStringRef& arows,
                                                                EnumeratedListStyle style,
                                                                bool isUpperCase) const
{
    const Marker marker = {EnumeratedKind::romanNumeral, style, isUpperCase};
    return convertList<qlonglong>(*this, xrows, arows,
                                  {marker,
                                   [](const QStringRef& index) -> qlonglong { return romanValue(index); },
                                   numberBehind, 1, isUpperCase ? 'I' : 'i', textOfNumber});
}

QString RSTConversionLibrary::convertEnumeratedListAlphabetic(const QStringRef& xrows,
                                                              const QStringRef& arows,
                                                              EnumeratedListStyle style,
                                                              bool isUpperCase) const
{
    const Marker marker = {EnumeratedKind::alphabetic, style, isUpperCase};
    return convertList<char16_t>(*this, xrows, arows,
                                 {marker,
                                  [](const QStringRef& index) -> char16_t { return index.at(0).unicode(); },
                                  [](char16_t letter) -> std::optional<char16_t> {
                                      if (letter == u'Z' || letter == u'z')
                                          return std::nullopt;
                                      return static_cast<char16_t>(letter + 1);
                                  },
                                  isUpperCase ? u'A' : u'a', isUpperCase ? 'A' : 'a',
                                  [](char16_t letter) { return QString(QChar(letter)); }});
}

} // namespace Halvorin::Text
