#include "HalvCore/exception.h"

namespace Halvorin::System {

ErrorCodeException::ErrorCodeException(const ErrorCode& code)
    : AbstractErrorCodeException(code.message()), m_code(code)
{}

} // namespace Halvorin::System
