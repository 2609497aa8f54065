#ifndef JSONOBJECT_H
#define JSONOBJECT_H

#include <QJsonDocument>
#include <QJsonObject>
#include <stdexcept>

/// The object that a JSON text stands for.
inline QJsonObject jsonObject(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    if (!document.isObject())
        throw std::invalid_argument("no JSON object: " + text.toStdString());
    return document.object();
}

#endif
