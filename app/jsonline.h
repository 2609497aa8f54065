#ifndef JSONLINE_H
#define JSONLINE_H

#include <string>

class QJsonObject;

/// An object on a line of its own, as strict readers of JSON take it. Text that is not UTF-8 is shown with
/// replacement characters, which is all that JSON can carry.
std::string jsonLine(const QJsonObject& object);

#endif
