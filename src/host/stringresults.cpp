#include "host/stringresults.h"

#include <cstring>

void storeStrings(ScriptResults& results, const std::vector<std::string>& texts)
{
    char** slots = results.allocateStrings(texts.size());
    for (const std::string& text : texts)
        *slots++ = strdup(text.c_str());
}
