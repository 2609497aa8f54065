#ifndef EXECUTIONINTERFACE_H
#define EXECUTIONINTERFACE_H

#include "halvwidgetsexport.h"

#include <string>

/// What running code is given. An actor of a chart derives from it; the functions of a device expect it to
/// be an AbstractDigitalDeviceActor.
class HALVWIDGETS_EXPORT AbstractExecutionInterface
{
public:
    virtual ~AbstractExecutionInterface();

    /// Takes the text of the language's function "print".
    virtual void print(const std::string& text) = 0;
};

#endif
