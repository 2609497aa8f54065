#include "grammar/jsongrammarreader.h"

#include <QDebug>
#include <QJsonArray>
#include <QJsonObject>
#include <array>

namespace Halvorin::TextMate {

namespace {

GrammarCaptures readCaptures(const QJsonValue& value)
{
    GrammarCaptures captures;
    const QJsonObject groups = value.toObject();
    for (auto group = groups.begin(); group != groups.end(); ++group) {
        bool isNumber = false;
        const int number = group.key().toInt(&isNumber);
        if (!isNumber || !group->isObject())
            continue;
        QJsonObject record = group->toObject();
        captures[number].name = record.take(QLatin1String("name")).toString();
        if (!record.isEmpty())
            qDebug().nospace().noquote() << "extra keys: " << record.keys().join(QLatin1String(", "));
    }
    return captures;
}

GrammarRule readRule(const QJsonObject& object);

std::vector<GrammarRule> readRules(const QJsonValue& value)
{
    std::vector<GrammarRule> rules;
    const QJsonArray array = value.toArray();
    rules.reserve(static_cast<std::size_t>(array.size()));
    for (const QJsonValue element : array)
        rules.push_back(readRule(element.toObject()));
    return rules;
}

/// A value that is no text is an empty expression, which matches nothing.
template <class Expression>
Expression readExpression(const QJsonValue& value)
{
    return value.isString() ? Expression(value.toString()) : Expression();
}

struct Key
{
    const char* name;
    void (*read)(GrammarRule& rule, const QJsonValue& value);
};

constexpr std::array<Key, 10> keys{{
    {"name", [](GrammarRule& rule, const QJsonValue& value) { rule.name = value.toString(); }},
    {"match", [](GrammarRule& rule,
                 const QJsonValue& value) { rule.match = readExpression<GrammarExpression>(value); }},
    {"begin", [](GrammarRule& rule,
                 const QJsonValue& value) { rule.begin = readExpression<GrammarExpression>(value); }},
    {"end", [](GrammarRule& rule,
               const QJsonValue& value) { rule.end = readExpression<EndGrammarExpression>(value); }},
    {"contentName", [](GrammarRule& rule, const QJsonValue& value) { rule.contentName = value.toString(); }},
    {"captures", [](GrammarRule& rule, const QJsonValue& value) { rule.captures = readCaptures(value); }},
    {"beginCaptures",
     [](GrammarRule& rule, const QJsonValue& value) { rule.beginCaptures = readCaptures(value); }},
    {"endCaptures",
     [](GrammarRule& rule, const QJsonValue& value) { rule.endCaptures = readCaptures(value); }},
    {"include", [](GrammarRule& rule, const QJsonValue& value) { rule.include = value.toString(); }},
    {"patterns", [](GrammarRule& rule, const QJsonValue& value) { rule.patterns = readRules(value); }},
}};

GrammarRule readRule(const QJsonObject& object)
{
    GrammarRule rule;
    for (const Key& key : keys) {
        const auto value = object.find(QLatin1String(key.name));
        if (value != object.end())
            key.read(rule, *value);
    }
    return rule;
}

QRegularExpression readPattern(const QJsonValue& value)
{
    return value.isString() ? compileExpression(value.toString()) : QRegularExpression();
}

} // namespace

GrammarData readJsonGrammar(const QJsonObject& object)
{
    GrammarData data;
    data.scopeName = object.value(QLatin1String("scopeName")).toString();
    for (const QJsonValue type : object.value(QLatin1String("fileTypes")).toArray())
        data.fileTypes.append(type.toString());
    data.foldingStartMarker = readPattern(object.value(QLatin1String("foldingStartMarker")));
    data.foldingStopMarker = readPattern(object.value(QLatin1String("foldingStopMarker")));
    data.firstLineMatch = readPattern(object.value(QLatin1String("firstLineMatch")));
    data.patterns = readRules(object.value(QLatin1String("patterns")));
    const QJsonObject repository = object.value(QLatin1String("repository")).toObject();
    for (auto rule = repository.begin(); rule != repository.end(); ++rule)
        data.repository.emplace(rule.key(), readRule(rule->toObject()));
    return data;
}

} // namespace Halvorin::TextMate
