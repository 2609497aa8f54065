#ifndef PLATFORM_H
#define PLATFORM_H

#include <QtGlobal>

/// What the transport asks of the operating system beyond Qt. A file for each platform has it.
namespace Halvorin::LSP::Platform {

/// Sends the acknowledgement that a TCP socket holds back, and asks it to hold none back next.
void acknowledgeAtOnce(qintptr socketDescriptor);

/// Called in a new process before it becomes the server: puts it at the head of a process group of its own,
/// and lets it be killed when the application that started it is gone.
void leadProcessGroup(qint64 application);

/// Kills the group that the process leads, or led: what it started may outlive it.
void killProcessGroup(qint64 process);

} // namespace Halvorin::LSP::Platform

#endif
