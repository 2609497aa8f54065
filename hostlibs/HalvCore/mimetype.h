#ifndef HALVCORE_MIMETYPE_H
#define HALVCORE_MIMETYPE_H

#include "HalvCore/string.h"

namespace Halvorin::System {

/// A MIME type such as "application/json".
class MIMEType
{
public:
    MIMEType() = default;
    MIMEType(const char* text) : m_text(text) {}

    const String& toString() const { return m_text; }

    friend bool operator==(const MIMEType&, const MIMEType&) = default;

private:
    String m_text;
};

} // namespace Halvorin::System

#endif
