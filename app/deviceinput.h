#ifndef DEVICEINPUT_H
#define DEVICEINPUT_H

#include "simulator/devicefile.h"

#include <string>

/// The texts of a device from a file that holds a definition, a compiled device or a bundle; which of them it
/// is, its content tells. "-" is standard input.
/// @throws an exception that says what is wrong with the file
DeviceTexts readDeviceInput(const std::string& argument);

/// The text of a file, or of standard input for "-".
std::string readTextInput(const std::string& argument);

/// How messages call it.
std::string shownInputName(const std::string& argument);

/// Prints what is wrong with a definition that does not compile the way "check" does, to standard error.
void reportErrors(const std::string& name, const std::string& definition);

#endif
