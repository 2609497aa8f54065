#ifndef DDCODEBUILDERFACTORY_H
#define DDCODEBUILDERFACTORY_H

#include "actionlanguage/codebuilder.h"

/// Makes the builder of a device's code.
class DDCodeBuilderFactory
{
public:
    /// A builder that knows the functions of a device beside the general library.
    static std::unique_ptr<CodeBuilder> createCodeBuilder();
};

#endif
