#ifndef LOGGAMMA_H
#define LOGGAMMA_H

/// The standard's lgamma, without its global variable for the sign: charts on several threads may call it.
double logGamma(double x);

#endif
