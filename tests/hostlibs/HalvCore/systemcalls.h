#ifndef SYSTEMCALLS_H
#define SYSTEMCALLS_H

#include <functional>
#include <string>

/// What happens in this program just before or after a system call that makes or renames a file: there a
/// signal would come at the worst time.
struct SystemCallHooks
{
    std::function<void(const std::string& path)> beforeNewFile; ///< one that must not be there yet
    std::function<void()> afterExchange;
};

SystemCallHooks& systemCallHooks();

#endif
