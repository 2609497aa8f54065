#ifndef RECORDCASE_H
#define RECORDCASE_H

#include "languageclient/records/lsprecord.h"

#include <initializer_list>
#include <memory>
#include <string>
#include <type_traits>
#include <typeindex>
#include <vector>

/// The table of all records, as the protocol's clients and servers see them, written apart from the
/// declarations that it is held against. A row:
///
///     RECORD(LSPTextEdit, Bases<>(), MADE_OF(r.range(), r.newText()),
///            REQUIRED(range, setRange, RANGE),
///            OPTIONAL(note, setNote, R"("text", {"kind": "plaintext", "value": "text"})"))
///
/// A field has a value for each JSON type that may stand under its key, of which the first is the usual one.
namespace recordcases {

using Frame = Halvorin::LSP::LSPAbstractJsonObject;

/// A key of a record, with its getter and setter. Made of what needs no destruction: with the sanitizers, the
/// compiler takes minutes over a long list of anything else.
struct Field
{
    const char* name;
    bool required;
    /// Whether the getter gives an array, which is not there when an element is of another type.
    bool list;
    const char* texts;
    /// Reads the field of the one record and, where there is something, writes it to the other.
    void (*transfer)(const Frame& from, Frame& to);

    QString key() const { return QLatin1String(name); }
    QJsonArray samples() const;
};

/// A record with the fields of its own, and what can be done with its class.
struct RecordCase
{
    std::string name;
    std::type_index type;
    std::vector<std::type_index> bases;
    std::vector<Field> fields;
    std::span<const Halvorin::LSP::LSPKey> (*keys)();
    std::unique_ptr<Frame> (*make)();
    std::unique_ptr<Frame> (*makeOf)(const QJsonObject&);
    /// By the constructor that takes the required keys; null where the record has none.
    std::unique_ptr<Frame> (*makeOfRequired)(const Frame&);
    /// Copies, assigns, swaps and erases records of the two contents, and names what does not hold then what
    /// it should.
    QStringList (*copyAround)(const QJsonObject&, const QJsonObject&);
};

/// All rows.
const std::vector<RecordCase>& allRecords();

std::vector<RecordCase> capabilityRecords();
std::vector<RecordCase> completionRecords();
std::vector<RecordCase> documentRecords();
std::vector<RecordCase> lifecycleRecords();
std::vector<RecordCase> languageRecords();

template <class... Base>
struct Bases
{
    static std::vector<std::type_index> types() { return {std::type_index(typeid(Base))...}; }
    template <class Record>
    static constexpr bool areOf = (std::is_base_of_v<Base, Record> && ... && true);
};

template <class Got>
constexpr bool isList = false;
template <class T>
constexpr bool isList<std::optional<std::vector<T>>> = true;

template <class T, class Set>
void hand(const T& value, Set set)
{
    set(value);
}

template <class T, class Set>
void hand(const std::optional<T>& value, Set set)
{
    if (value)
        set(*value);
}

template <class Record>
QStringList copyAround(const QJsonObject& one, const QJsonObject& other)
{
    QStringList wrong;
    const auto expect = [&wrong](const char* what, const Record& record, const QJsonObject& content) {
        if (record.toJson() != content)
            wrong << QString::fromLatin1(what);
    };
    Record a(one);
    Record b(other);
    expect("copied", Record(a), one);
    b = a;
    expect("assigned", b, one);
    expect("assigned from", a, one);
    const Record& same = a;
    a = same;
    expect("assigned to itself", a, one);
    b = Record(other);
    expect("assigned from a temporary", b, other);
    std::swap(a, b);
    expect("swapped", a, other);
    expect("swapped", b, one);
    expect("made of a temporary", Record(std::move(a)), other);
    std::vector<Record> list{Record(one), Record(other), Record(one)};
    list.erase(list.begin());
    expect("first after erasing", list.at(0), other);
    expect("second after erasing", list.at(1), one);
    return wrong;
}

template <class Record, class BaseList, class MakeOfRequired>
RecordCase recordCase(const char* name, BaseList, MakeOfRequired, std::initializer_list<Field> fields)
{
    static_assert(BaseList::template areOf<Record>);
    RecordCase result{
        name,
        typeid(Record),
        BaseList::types(),
        fields,
        &Record::keys,
        []() -> std::unique_ptr<Frame> { return std::make_unique<Record>(); },
        [](const QJsonObject& object) -> std::unique_ptr<Frame> { return std::make_unique<Record>(object); },
        nullptr,
        &copyAround<Record>};
    if constexpr (!std::is_null_pointer_v<MakeOfRequired>) {
        result.makeOfRequired = [](const Frame& from) -> std::unique_ptr<Frame> {
            return std::make_unique<Record>(MakeOfRequired()(dynamic_cast<const Record&>(from)));
        };
    }
    return result;
}

} // namespace recordcases

#define RECORD(Type, bases, makeOfRequired, ...)                                                             \
    [] {                                                                                                     \
        using R = Type;                                                                                      \
        return recordCase<R>(#Type, bases, makeOfRequired, {__VA_ARGS__});                                   \
    }()
#define MADE_OF(...) [](const R& r) { return R(__VA_ARGS__); }
#define REQUIRED(getter, setter, samples) FIELD(true, getter, setter, samples)
#define OPTIONAL(getter, setter, samples) FIELD(false, getter, setter, samples)
#define FIELD(required, getter, setter, samples)                                                             \
    {                                                                                                        \
#getter, required, isList<decltype(std::declval<R>().getter())>, samples, \
            [](const Frame& from, Frame& to) { \
                hand(dynamic_cast<const R&>(from).getter(), \
                     [&](const auto& value) { dynamic_cast<R&>(to).setter(value); }); \
            }                                  \
    }

// Values that many records hold.
#define ANYTHING R"(null, true, 4, "text", [1, "text"], {"key": 1})"
#define RANGE R"({"start": {"line": 1, "character": 2}, "end": {"line": 3, "character": 4}})"
#define LOCATION R"({"uri": "file:///a.py", "range": )" RANGE "}"
#define POSITION R"({"line": 1, "character": 2})"
#define DOCUMENT R"({"uri": "file:///a.py"})"
#define DOCUMENTATION R"("text", {"kind": "markdown", "value": "*text*"})"
#define TOKEN R"(7, "seven")"

#endif
