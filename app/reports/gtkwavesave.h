#ifndef GTKWAVESAVE_H
#define GTKWAVESAVE_H

#include <string>

class SimulatedDevice;

/// The text of a save file of the waveform viewer GTKWave: what to show of a dump, in which order and how.
/// First the active states, then inputs, outputs and variables, under headings; numbers as numbers of their
/// kind, an unsigned bus in hexadecimal.
/// @param dump path of the dump, as it is to be found from the save file
/// @param name of the device's scope in the dump
std::string gtkwaveSaveText(const std::string& dump, const std::string& name, const SimulatedDevice& device);

#endif
