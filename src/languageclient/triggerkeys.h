#ifndef TRIGGERKEYS_H
#define TRIGGERKEYS_H

#include <QString>
#include <vector>

namespace Halvorin::LSP {

/// The key codes (Qt::Key) of each character of each text in order: what QKeySequence::fromString makes of
/// the one character in its portable form, without Qt Gui. A character that is no key is left out.
std::vector<int> triggerKeys(const std::vector<QString>& texts);

} // namespace Halvorin::LSP

#endif
