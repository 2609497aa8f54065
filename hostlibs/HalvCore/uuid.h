#ifndef HALVCORE_UUID_H
#define HALVCORE_UUID_H

#include "HalvCore/halvcoreexport.h"

#include <string>

namespace Halvorin::System {

/// A unique identifier in its text form, such as "6f1c2a34-9d3e-4d0b-8a57-0c2f6a1b3c4d".
class HALVCORE_EXPORT UUID
{
public:
    /// A new identifier, different from every other.
    UUID();

    /// The identifier with this text, with or without braces and in either case; a text that is none gives
    /// the null identifier, all zero.
    explicit UUID(const std::string& text);

    const char* c_str() const { return m_text.c_str(); }
    const std::string& toStdString() const { return m_text; }

    friend bool operator==(const UUID&, const UUID&) = default;

private:
    std::string m_text;
};

} // namespace Halvorin::System

#endif
