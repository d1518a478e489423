#ifndef QVIMAGE_IPPS_LZSS_H
#define QVIMAGE_IPPS_LZSS_H

/* LZSS encoder and decoder. */

#include "ippdefs.h"

QV_BEGIN_C

QV_END_C

#endif
