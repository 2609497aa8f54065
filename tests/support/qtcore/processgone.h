#ifndef PROCESSGONE_H
#define PROCESSGONE_H

#include <QTest>
#include <fstream>
#include <string>

/// Waits until a process has ended; one that nobody has asked for its exit code yet has ended, too.
inline bool processGone(qint64 process)
{
    return QTest::qWaitFor(
        [process] {
            std::ifstream file("/proc/" + std::to_string(process) + "/stat");
            std::string text;
            std::getline(file, text);
            const std::size_t name = text.rfind(')'); // the name may hold anything
            return name == std::string::npos || text.compare(name, 3, ") Z") == 0;
        },
        60'000); // far beyond need
}

#endif
