#include "actionlanguage/functions/loggamma.h"

#include <math.h>

double logGamma(double x)
{
    int sign = 0;
    return ::lgamma_r(x, &sign);
}
