#ifndef COMMALOCALE_H
#define COMMALOCALE_H

#include "support/temporaryfolder.h"

#include <locale>

/// While it lives, the program runs under a locale that writes 1.5 as "1,5", C and the streams alike. The
/// locale is compiled into a folder of its own, so that it need not be among those of the system. A test that
/// asks for it fails with an exception when printf and streams do not write the comma.
class CommaLocale
{
public:
    CommaLocale();
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale();

private:
    TemporaryFolder m_folder;
    std::locale m_before;
};

#endif
