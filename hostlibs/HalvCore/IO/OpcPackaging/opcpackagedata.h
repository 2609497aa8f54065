#ifndef HALVCORE_OPCPACKAGEDATA_H
#define HALVCORE_OPCPACKAGEDATA_H

#include "HalvCore/IO/OpcPackaging/opcpackage.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace Halvorin::System::IO::OpcPackaging {

struct OpcPackagePartData
{
    OpcPackagePartUri uri;
    MIMEType contentType;
    CompressionOption compression = CompressionOption::normal;
    std::string content;
};

struct OpcRelationship
{
    std::string id;
    std::string type;
    std::string target;
    TargetMode mode = TargetMode::internal;
};

struct OpcPackageData
{
    std::vector<std::shared_ptr<OpcPackagePartData>> parts; // as they were created
    std::map<std::string, std::shared_ptr<OpcPackagePartData>> partsByKey;
    std::vector<OpcRelationship> relationships;
};

} // namespace Halvorin::System::IO::OpcPackaging

#endif
