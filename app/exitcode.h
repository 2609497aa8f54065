#ifndef EXITCODE_H
#define EXITCODE_H

#include <stdexcept>

/// What the shell tells whoever started it.
enum ExitCode
{
    exitDone = 0,
    exitInputHasErrors = 1, // also: an expectation failed, a file cannot be read or written
    exitWrongUsage = 2,
};

/// The command line asks for what cannot be; the text says why.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

#endif
