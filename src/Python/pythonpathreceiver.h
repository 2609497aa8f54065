#ifndef PYTHONPATHRECEIVER_H
#define PYTHONPATHRECEIVER_H

#include "HalvCore/filepath.h"

#include <functional>

/// How an editor hears which interpreter is being loaded: it stands above this folder, so it installs a
/// function here. There is one receiver; an empty function takes it back. GUI thread only.
using PythonPathReceiver = std::function<void(const Halvorin::System::FilePath& interpreter)>;

void setPythonPathReceiver(PythonPathReceiver receiver);

/// Tells the receiver, if there is one.
void sendPythonPath(const Halvorin::System::FilePath& interpreter);

#endif
