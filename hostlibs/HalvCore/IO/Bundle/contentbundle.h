#ifndef HALVCORE_CONTENTBUNDLE_H
#define HALVCORE_CONTENTBUNDLE_H

#include "HalvCore/IO/Bundle/abstractbundle.h"

namespace Halvorin::System::IO::Bundle {

/// A bundle of content: made empty, or read from a file.
class HALVCORE_EXPORT ContentBundle : public AbstractBundle
{
public:
    ContentBundle();
    ~ContentBundle() override;
    ContentBundle(const ContentBundle&) = default;
    ContentBundle& operator=(const ContentBundle&) = default;

    static Expected<ContentBundle, ErrorCode2> readFromFile(const FilePath2& path);

private:
    explicit ContentBundle(OpcPackaging::OpcPackage package);
};

} // namespace Halvorin::System::IO::Bundle

#endif
