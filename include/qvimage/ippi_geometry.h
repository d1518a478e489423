#ifndef QVIMAGE_IPPI_GEOMETRY_H
#define QVIMAGE_IPPI_GEOMETRY_H

/* Mirroring. */

#include "ippdefs.h"

QV_BEGIN_C

QV_END_C

#endif
