#include "cases/recordcase.h"

#include <QSet>
#include <algorithm>
#include <functional>
#include <gmock/gmock.h>

using recordcases::allRecords;
using recordcases::Field;
using recordcases::Frame;
using recordcases::RecordCase;

namespace {

const QJsonArray oneOfEachType{
    QJsonValue::Null, true, 4, QStringLiteral("text"), QJsonArray(), QJsonObject()};

/// The fields of a record, those of its bases first.
std::vector<Field> fieldsOf(const RecordCase& record)
{
    std::vector<Field> fields;
    for (const std::type_index base : record.bases) {
        const auto found = std::find_if(allRecords().begin(),
                                        allRecords().end(),
                                        [&](const RecordCase& other) { return other.type == base; });
        const std::vector<Field> inherited = fieldsOf(*found);
        fields.insert(fields.end(), inherited.begin(), inherited.end());
    }
    fields.insert(fields.end(), record.fields.begin(), record.fields.end());
    return fields;
}

/// An object with the usual value under each key, or under each required one.
QJsonObject filled(const RecordCase& record, bool requiredOnly = false)
{
    QJsonObject object;
    for (const Field& field : fieldsOf(record)) {
        if (field.required || !requiredOnly)
            object.insert(field.key(), field.samples().first());
    }
    return object;
}

/// What the setters write of what the getters read.
QJsonObject readAndWritten(const RecordCase& record, const QJsonObject& object)
{
    const auto from = record.makeOf(object);
    const auto to = record.makeOf({});
    for (const Field& field : fieldsOf(record))
        field.transfer(*from, *to);
    return to->toJson();
}

QString complaint(const QString& key)
{
    return QStringLiteral("Missing parameter: ") + key;
}

QStringList complaints(const RecordCase& record)
{
    QStringList result;
    for (const Field& field : fieldsOf(record)) {
        if (field.required)
            result << complaint(field.key());
    }
    return result;
}

bool accepts(const QJsonArray& samples, const QJsonValue& value)
{
    return std::any_of(samples.begin(), samples.end(), [&](const QJsonValue& sample) {
        return sample.type() == value.type();
    });
}

/// Runs the check on every record of the table; a failure tells which it was.
void forEveryRecord(const std::function<void(const RecordCase& record)>& check)
{
    for (const RecordCase& record : allRecords()) {
        SCOPED_TRACE(record.name);
        check(record);
    }
}

} // namespace

TEST(Records, ListTheirKeysAndWhichAreRequired)
{
    forEveryRecord([](const RecordCase& record) {
        QStringList expected;
        for (const Field& field : record.fields)
            expected << field.key() + QLatin1String(field.required ? " required" : "");
        QStringList actual;
        for (const auto& key : record.keys())
            actual << key.name + QLatin1String(key.required ? " required" : "");
        EXPECT_EQ(actual, expected);
    });
}

TEST(Records, NameAllKeysThatAreMissing)
{
    forEveryRecord([](const RecordCase& record) {
        EXPECT_EQ(record.makeOf({})->missingParameters(), complaints(record));
        EXPECT_EQ(record.makeOf(filled(record))->missingParameters(), QStringList());
        EXPECT_EQ(record.makeOf(filled(record, true))->missingParameters(), QStringList());
    });
}

TEST(Records, RefuseAnObjectThatLacksARequiredKeyAndKeepTheirContent)
{
    forEveryRecord([](const RecordCase& record) {
        const QJsonObject old = filled(record, true);
        for (const Field& field : fieldsOf(record)) {
            QJsonObject object = filled(record);
            object.remove(field.key());
            const auto read = record.makeOf(old);
            EXPECT_EQ(read->fromJson(object), !field.required) << field.name;
            EXPECT_EQ(read->toJson(), field.required ? old : object) << field.name;
            EXPECT_EQ(record.makeOf(object)->missingParameters(),
                      field.required ? QStringList(complaint(field.key())) : QStringList());
        }
    });
}

TEST(Records, KeepEveryKeyOfTheObjectTheyAreReadFrom)
{
    forEveryRecord([](const RecordCase& record) {
        QJsonObject object = filled(record);
        object.insert(QStringLiteral("unheard-of"), QJsonArray{1});
        const auto read = record.make();
        EXPECT_TRUE(read->fromJson(object));
        EXPECT_EQ(read->toJson(), object);
    });
}

TEST(Records, ReadAndWriteEachKeyInEachOfItsTypes)
{
    forEveryRecord([](const RecordCase& record) {
        const QJsonObject usual = filled(record);
        EXPECT_EQ(readAndWritten(record, usual), usual);
        for (const Field& field : fieldsOf(record)) {
            for (const QJsonValue& sample : field.samples()) {
                QJsonObject object = usual;
                object.insert(field.key(), sample);
                EXPECT_EQ(readAndWritten(record, object), object) << field.name;
            }
        }
    });
}

TEST(Records, GiveNothingForOptionalKeysThatAreAbsent)
{
    forEveryRecord([](const RecordCase& record) {
        const QJsonObject object = filled(record, true);
        EXPECT_EQ(readAndWritten(record, object), object);
    });
}

TEST(Records, GiveTheZeroValueOrNothingForAValueOfAnotherType)
{
    forEveryRecord([](const RecordCase& record) {
        for (const Field& field : fieldsOf(record)) {
            for (const QJsonValue& value : oneOfEachType) {
                if (accepts(field.samples(), value))
                    continue;
                const auto from = record.makeOf({{field.key(), value}});
                EXPECT_FALSE(from->missingParameters().contains(complaint(field.key())));
                const auto to = record.makeOf({});
                field.transfer(*from, *to);
                const QJsonValue got = to->toJson().value(field.key());
                SCOPED_TRACE(field.name);
                if (!field.required || field.list) {
                    EXPECT_TRUE(got.isUndefined());
                    continue;
                }
                EXPECT_EQ(got.type(), field.samples().first().type());
                EXPECT_EQ(got.toDouble(), 0);
                EXPECT_FALSE(got.toBool());
            }
        }
    });
}

TEST(Records, GiveNoArrayWhenAnElementIsOfAnotherType)
{
    forEveryRecord([](const RecordCase& record) {
        for (const Field& field : fieldsOf(record)) {
            const QJsonArray sample = field.samples().first().toArray();
            for (const QJsonValue& value : oneOfEachType) {
                if (!field.list || accepts(sample, value))
                    continue;
                QJsonArray array = sample;
                array.append(value);
                const auto to = record.makeOf({});
                field.transfer(*record.makeOf({{field.key(), array}}), *to);
                EXPECT_EQ(to->toJson(), QJsonObject()) << field.name;
            }
            if (!field.list)
                continue;
            const QJsonObject empty{{field.key(), QJsonArray()}};
            const auto to = record.makeOf({});
            field.transfer(*record.makeOf(empty), *to);
            EXPECT_EQ(to->toJson(), empty) << field.name;
        }
    });
}

TEST(Records, AreMadeOfTheirRequiredKeys)
{
    forEveryRecord([](const RecordCase& record) {
        const QJsonObject required = filled(record, true);
        if (!record.makeOfRequired) {
            EXPECT_TRUE(record.fields.empty() || required.isEmpty());
            return;
        }
        QJsonObject expected = record.make()->toJson();
        for (auto key = required.begin(); key != required.end(); ++key)
            expected.insert(key.key(), key.value());
        EXPECT_EQ(record.makeOfRequired(*record.makeOf(required))->toJson(), expected);
    });
}

TEST(Records, KeepTheirContentWhenCopiedAndMovedAround)
{
    forEveryRecord([](const RecordCase& record) {
        QJsonObject other = filled(record, true);
        other.insert(QStringLiteral("unheard-of"), 1);
        EXPECT_EQ(record.copyAround(filled(record), other), QStringList());
    });
}

TEST(Records, StandInTheTableOnce)
{
    QSet<QString> names;
    for (const RecordCase& record : allRecords())
        names.insert(QString::fromStdString(record.name));
    EXPECT_EQ(static_cast<std::size_t>(names.size()), allRecords().size());
}
