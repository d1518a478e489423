#ifndef QVIMAGE_IPPS_RLE_H
#define QVIMAGE_IPPS_RLE_H

/* Run-length encoder and decoder. */

#include "ippdefs.h"

QV_BEGIN_C

QV_END_C

#endif
