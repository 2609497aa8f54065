#ifndef STRINGRESULTS_H
#define STRINGRESULTS_H

#include "HostSupport/scriptcall.h"

#include <string>
#include <vector>

/// Gives the result list a slot for each text, with a copy that the host frees.
void storeStrings(ScriptResults& results, const std::vector<std::string>& texts);

#endif
