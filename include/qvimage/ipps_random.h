#ifndef QVIMAGE_IPPS_RANDOM_H
#define QVIMAGE_IPPS_RANDOM_H

/* Uniform random generators. The generators themselves exist inside each tier only, for the
   dither tables of the bit reduction; they have no exported entry. Their states are opaque. */

#include "ippdefs.h"

QV_BEGIN_C

typedef struct RandUniState_16s IppsRandUniState_16s;
typedef struct RandUniState_32f IppsRandUniState_32f;

QV_END_C

#endif
