#ifndef HOSTSUPPORT_OPTIONS_H
#define HOSTSUPPORT_OPTIONS_H

#include "HostSupport/hostsupportexport.h"
#include "HostSupport/ystring.h"

/// Read a named option: what is stored, else the default with which it was registered. `found`, unless
/// null, is set to whether there is a value of that type; without one the result is false, 0 or empty.
HOSTSUPPORT_EXPORT bool sp_GetBoolOption(const char* name, bool* found = nullptr);
HOSTSUPPORT_EXPORT int sp_GetIntOption(const char* name, bool* found = nullptr);
HOSTSUPPORT_EXPORT double sp_GetDoubleOption(const char* name, bool* found = nullptr);
HOSTSUPPORT_EXPORT YString sp_GetStringOption(const char* name, bool* found = nullptr);

/// Writes a named option for good. False when it could not be stored; it then holds for this run.
HOSTSUPPORT_EXPORT bool sp_WriteOption(const char* name, const char* text);
HOSTSUPPORT_EXPORT bool sp_WriteOption(const char* name, bool value);

#endif
