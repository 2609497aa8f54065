#include "languageclient/triggerkeys.h"

namespace Halvorin::LSP {

namespace {

/// 0 for a character that is no key.
int keyOf(QChar character)
{
    const QString lower = QString(character).toLower();
    return lower.size() == 1 ? lower.at(0).toUpper().unicode() : int{Qt::Key_unknown};
}

} // namespace

std::vector<int> triggerKeys(const std::vector<QString>& texts)
{
    std::vector<int> keys;
    for (const QString& text : texts) {
        for (const QChar character : text) {
            if (const int key = keyOf(character); key != 0)
                keys.push_back(key);
        }
    }
    return keys;
}

} // namespace Halvorin::LSP
