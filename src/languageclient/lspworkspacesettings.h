#ifndef LSPWORKSPACESETTINGS_H
#define LSPWORKSPACESETTINGS_H

#include <QJsonObject>
#include <QObject>

namespace Halvorin::LSP {

/// The tree of settings that a server reads through "workspace/configuration". A path names a place in it by
/// keys joined with full stops; the empty path names the whole tree. Keys are told apart by case, and an
/// empty key is a key.
class LSPWorkspaceSettings : public QObject
{
    Q_OBJECT

public:
    explicit LSPWorkspaceSettings(QObject* parent = nullptr);

    /// JSON null where there is nothing.
    QJsonValue value(const QString& path) const;

    /// Makes the objects that the path needs, also in the place of what is no object. With an empty path the
    /// value's object becomes the tree: an empty one when the value is no object. Raises std::length_error
    /// for a path of more than 500 keys.
    void setValue(const QString& path, const QJsonValue& value);

Q_SIGNALS:
    /// The whole tree, after each setValue().
    void settingsChanged(QJsonObject reference);

private:
    QJsonObject m_tree;
};

} // namespace Halvorin::LSP

#endif
