#ifndef LSPABSTRACTJSONOBJECT_H
#define LSPABSTRACTJSONOBJECT_H

#include "halvwidgetsexport.h"

#include <QJsonObject>
#include <QJsonValue>
#include <QLatin1String>
#include <QStringList>
#include <span>

namespace Halvorin::LSP {

/// A row of a record's table: a key that the record reads and writes.
struct LSPKey
{
    /// What a nested record that is there lacks itself.
    using NestedCheck = QStringList (*)(const QJsonValue& value);

    QLatin1String name;
    bool required;
    /// Null where the record leaves the nested one unchecked.
    NestedCheck nestedCheck;
};

/// The frame of every object of the Language Server Protocol 3.17: a typed view of one JSON object, which is
/// the only storage. Keys that no record knows stay in it, untouched.
///
/// Records are values. They are copied and never moved: a record with several bases has this frame as one
/// virtual base, and a move assignment would empty it through the first base and then again through the
/// second.
class HALVWIDGETS_EXPORT LSPAbstractJsonObject
{
public:
    virtual ~LSPAbstractJsonObject();

    /// Takes the object if it has every required key; otherwise returns false and keeps what was there.
    virtual bool fromJson(const QJsonObject& object);

    /// "Missing parameter: KEY" for each required key that is not there, bases first. The types of the values
    /// are not looked at.
    virtual QStringList missingParameters() const;

    const QJsonObject& toJson() const { return m_object; }
    bool contains(QLatin1String key) const { return m_object.contains(key); }
    QJsonValue value(QLatin1String key, const QJsonValue& defaultValue = {}) const;

protected:
    LSPAbstractJsonObject() = default;
    explicit LSPAbstractJsonObject(const QJsonObject& object) : m_object(object) {}
    LSPAbstractJsonObject(const LSPAbstractJsonObject&) = default;
    LSPAbstractJsonObject& operator=(const LSPAbstractJsonObject&) = default;

    void setValue(QLatin1String key, const QJsonValue& value) { m_object.insert(key, value); }

    /// Adds "Missing parameter: KEY" to the list when the object lacks the key.
    void require(QLatin1String key, QStringList& missing) const;

    /// Does so for every required key of a table, and adds what its checked nested records lack.
    void require(std::span<const LSPKey> keys, QStringList& missing) const;

private:
    QJsonObject m_object;
};

} // namespace Halvorin::LSP

#endif
