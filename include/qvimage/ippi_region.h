#ifndef QVIMAGE_IPPI_REGION_H
#define QVIMAGE_IPPI_REGION_H

/* Flood fill. */

#include "ippdefs.h"

QV_BEGIN_C

QV_END_C

#endif
