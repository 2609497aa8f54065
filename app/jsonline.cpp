#include "jsonline.h"

#include <QJsonDocument>
#include <QJsonObject>

std::string jsonLine(const QJsonObject& object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact).toStdString();
}
