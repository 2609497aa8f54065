#ifndef HALVCORE_BYTEARRAY2_H
#define HALVCORE_BYTEARRAY2_H

#include <cstddef>
#include <string>
#include <string_view>

namespace Halvorin::System {

/// Bytes of any kind, as the Expected interfaces hand them over.
class ByteArray2
{
public:
    ByteArray2() = default;
    explicit ByteArray2(std::string bytes) : m_bytes(std::move(bytes)) {}

    const char* data() const { return m_bytes.data(); }
    std::size_t size() const { return m_bytes.size(); }
    std::string_view toStdStringView() const { return m_bytes; }

    friend bool operator==(const ByteArray2&, const ByteArray2&) = default;

private:
    std::string m_bytes;
};

} // namespace Halvorin::System

#endif
