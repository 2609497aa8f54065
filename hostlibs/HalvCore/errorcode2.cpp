#include "HalvCore/errorcode2.h"

namespace Halvorin::System {

std::string ErrorCode2::message() const
{
    const std::string words = m_code.message().toLegacyUtf8();
    return m_detail.empty() ? words : words + ": " + m_detail;
}

} // namespace Halvorin::System
