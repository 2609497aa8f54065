#include "systemcalls.h"

#include <cstdarg>
#include <linux/fcntl.h>
#include <linux/fs.h>
#include <sys/syscall.h>
#include <unistd.h>

// The calls of the C library are replaced for the whole program. They stand in a file of their own, which may
// not see how the library declares them.

SystemCallHooks& systemCallHooks()
{
    static SystemCallHooks hooks;
    return hooks;
}

extern "C" __attribute__((visibility("default"))) int open(const char* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    const unsigned mode = (flags & O_CREAT) != 0 ? va_arg(arguments, unsigned) : 0;
    va_end(arguments);
    if ((flags & O_EXCL) != 0 && systemCallHooks().beforeNewFile)
        systemCallHooks().beforeNewFile(path);
    return static_cast<int>(syscall(SYS_openat, AT_FDCWD, path, flags, mode));
}

extern "C" __attribute__((visibility("default"))) int
renameat2(int oldFolder, const char* oldPath, int newFolder, const char* newPath, unsigned flags) noexcept
{
    const auto result =
        static_cast<int>(syscall(SYS_renameat2, oldFolder, oldPath, newFolder, newPath, flags));
    if (result == 0 && (flags & RENAME_EXCHANGE) != 0 && systemCallHooks().afterExchange)
        systemCallHooks().afterExchange();
    return result;
}
