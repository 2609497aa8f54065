#include "cases/recordcase.h"
#include "languageclient/records/servercapabilities.h"

#include <QJsonDocument>
#include <cstdint>
#include <cstdlib>

using namespace Halvorin::LSP;

namespace {

void check(bool holds)
{
    if (!holds)
        std::abort();
}

/// A record is read when it lacks nothing, keeps the object as it is, and reads what it wrote itself.
void readAs(const recordcases::RecordCase& record, const QJsonObject& object)
{
    const auto read = record.make();
    const QJsonObject before = read->toJson();
    const bool whole = record.makeOf(object)->missingParameters().isEmpty();
    check(read->fromJson(object) == whole);
    check(read->toJson() == (whole ? object : before));

    const auto from = record.makeOf(object);
    const auto once = record.makeOf({});
    const auto twice = record.makeOf({});
    for (const recordcases::Field& field : record.fields) {
        field.transfer(*from, *once);
        field.transfer(*once, *twice);
    }
    check(once->toJson() == twice->toJson());
}

} // namespace

/// A JSON object as every record there is.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<int>(size));
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject())
        return 0;
    const QJsonObject object = document.object();
    for (const recordcases::RecordCase& record : recordcases::allRecords())
        readAs(record, object);
    const LSPServerCapabilities capabilities(object);
    for (const auto capability : LSPServerCapabilities::allCapabilities())
        capabilities.supports(capability);
    return 0;
}
