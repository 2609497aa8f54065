#include "languageclient/lspworkspacesettings.h"

#include <QStringList>
#include <stdexcept>

namespace Halvorin::LSP {

namespace {

/// Qt goes down into JSON with its stack, and reads no more than 1024 levels.
constexpr int maximumDepth = 500;

/// The object with the value at the path that the keys make.
QJsonObject withValue(const QJsonObject& object, const QStringList& keys, const QJsonValue& value)
{
    // From the root down to the object of the last key, then back up.
    QList<QJsonObject> objects{object};
    for (int level = 0; level + 1 < keys.size(); ++level)
        objects.append(objects.last().value(keys.at(level)).toObject());
    objects.last().insert(keys.last(), value);
    while (objects.size() > 1) {
        const QJsonObject child = objects.takeLast();
        objects.last().insert(keys.at(objects.size() - 1), child);
    }
    return objects.first();
}

} // namespace

LSPWorkspaceSettings::LSPWorkspaceSettings(QObject* parent) : QObject(parent) {}

QJsonValue LSPWorkspaceSettings::value(const QString& path) const
{
    QJsonValue current(m_tree);
    if (path.isEmpty())
        return current;
    for (const QString& key : path.split(QLatin1Char('.'))) {
        const QJsonObject object = current.toObject();
        if (!object.contains(key)) // nor does what is no object
            return QJsonValue(QJsonValue::Null);
        current = object.value(key);
    }
    return current;
}

void LSPWorkspaceSettings::setValue(const QString& path, const QJsonValue& value)
{
    const QStringList keys = path.split(QLatin1Char('.'));
    if (keys.size() > maximumDepth)
        throw std::length_error("a setting is nested too deeply");
    m_tree = path.isEmpty() ? value.toObject() : withValue(m_tree, keys, value);
    Q_EMIT settingsChanged(m_tree);
}

} // namespace Halvorin::LSP
