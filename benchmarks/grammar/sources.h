#ifndef SOURCES_H
#define SOURCES_H

#include <QString>
#include <QStringList>
#include <vector>

/// What the engines are timed on: some of the files of Python's standard library, as lines without their
/// ends.
struct Sources
{
    QStringList files;
    std::vector<QStringList> texts;
    int lineCount = 0;
    qint64 byteCount = 0;
};

/// Read once. @throws std::runtime_error when there is no Python 3 with its library on this machine
const Sources& sources();

#endif
