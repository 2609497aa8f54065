#include "HalvCore/uuid.h"

#include <QUuid>

namespace Halvorin::System {

UUID::UUID() : m_text(QUuid::createUuid().toString(QUuid::WithoutBraces).toStdString()) {}

UUID::UUID(const std::string& text)
    : m_text(QUuid(QString::fromStdString(text)).toString(QUuid::WithoutBraces).toStdString())
{}

} // namespace Halvorin::System
