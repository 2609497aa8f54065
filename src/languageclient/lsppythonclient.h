#ifndef LSPPYTHONCLIENT_H
#define LSPPYTHONCLIENT_H

#include "languageclient/lspabstractclient.h"

namespace Halvorin::LSP {

/// The client of a Python language server: says what this system's editors can do, and tells the server which
/// interpreter to analyse for.
///
/// The interpreter is that of the version in the host's option "python.pythonVersion", if there is one; the
/// server is told its path alone, as the setting "python.pythonPath".
class HALVWIDGETS_EXPORT LSPPythonClient : public LSPAbstractClient
{
    Q_OBJECT

public:
    explicit LSPPythonClient(QObject* parent = nullptr);

    LSPClientCapabilities clientCapabilities() const override;

    /// Stores the interpreter's path as "python.pythonPath" and tells the server of it.
    void setPythonPath(const QString& path);
};

} // namespace Halvorin::LSP

#endif
