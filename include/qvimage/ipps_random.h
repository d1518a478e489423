#ifndef QVIMAGE_IPPS_RANDOM_H
#define QVIMAGE_IPPS_RANDOM_H

/* Uniform random generators. */

#include "ippdefs.h"

QV_BEGIN_C

QV_END_C

#endif
