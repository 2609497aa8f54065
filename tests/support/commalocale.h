#ifndef COMMALOCALE_H
#define COMMALOCALE_H

#include "support/temporaryfolder.h"

#include <locale>
#include <string>

/// The name of the locale that writeCommaLocale() makes.
inline constexpr auto commaLocaleName = "comma";

/// Compiles the smallest locale in which 1.5 is "1,5" into a folder, from a source of our own: no locale of
/// the system is needed. A program finds it by LOCPATH.
void writeCommaLocale(const TemporaryFolder& folder);

/// While it lives, the program runs under that locale, C and the streams alike. A test that asks for it fails
/// with an exception when printf and streams do not write the comma.
class CommaLocale
{
public:
    CommaLocale();
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;
    ~CommaLocale();

private:
    TemporaryFolder m_folder;
    std::string m_cBefore;
    std::locale m_streamsBefore;
};

#endif
