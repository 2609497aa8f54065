#ifndef PYRIGHT_H
#define PYRIGHT_H

#include <QString>

/// The path of the real language server that tests talk to. Throws std::runtime_error when it is not
/// installed, with a text that says what to run: a test without its server has failed.
QString pyrightLanguageServer();

/// The same for a server at any path.
QString installedProgram(const QString& path);

#endif
