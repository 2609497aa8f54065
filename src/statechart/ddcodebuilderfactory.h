#ifndef DDCODEBUILDERFACTORY_H
#define DDCODEBUILDERFACTORY_H

#include "actionlanguage/codebuilder.h"
#include "halvwidgetsexport.h"

/// Makes the builder of a device's code.
class HALVWIDGETS_EXPORT DDCodeBuilderFactory
{
public:
    /// A builder that knows the functions of a device beside the general library.
    static std::unique_ptr<CodeBuilder> createCodeBuilder();
};

#endif
