#ifndef SHOWINFORMATION_H
#define SHOWINFORMATION_H

#include <string>

/// Tells the user something in a message box, and waits until it is closed. Where there are no windows, as on
/// the command line, it is logged as a warning on the channel "python".
void showInformation(const std::string& title, const std::string& text);

#endif
