#ifndef TERMINALTEXT_H
#define TERMINALTEXT_H

#include <string>

/// The text with "?" for every control character but the tab: what a file or an argument holds shall not
/// steer the terminal.
std::string withoutControlCharacters(std::string text);

#endif
