#include "languageserver/pyright.h"

#include "languageserverpaths.h"

#include <QFileInfo>

#include <stdexcept>

QString pyrightLanguageServer()
{
    return installedProgram(QStringLiteral(PYRIGHT_LANGUAGE_SERVER));
}

QString installedProgram(const QString& path)
{
    if (!QFileInfo(path).isExecutable())
        throw std::runtime_error(path.toStdString() +
                                 " is not installed: run scripts/install-language-server");
    return path;
}
