#ifndef HALVCORE_ERRORBUILDER_H
#define HALVCORE_ERRORBUILDER_H

#include "HalvCore/errorcode.h"

namespace Halvorin::System {

/// Makes an ErrorCode of an enumerated code: ErrorBuilder<FileError>::make(FileError::cannotOpen).
template <class Code>
struct ErrorBuilder
{
    static ErrorCode make(Code code) { return ErrorCode(code); }
};

} // namespace Halvorin::System

#endif
