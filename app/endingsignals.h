#ifndef ENDINGSIGNALS_H
#define ENDINGSIGNALS_H

/// From now on no temporary file is left when a signal from outside ends the program.
void cleanUpOnEndingSignals();

#endif
