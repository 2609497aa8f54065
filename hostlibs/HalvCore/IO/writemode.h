#ifndef HALVCORE_WRITEMODE_H
#define HALVCORE_WRITEMODE_H

namespace Halvorin::System::IO {

/// What happens to content that is there already.
enum class WriteMode
{
    replace = 0,
    append = 1,
};

} // namespace Halvorin::System::IO

#endif
