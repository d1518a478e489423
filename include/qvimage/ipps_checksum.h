#ifndef QVIMAGE_IPPS_CHECKSUM_H
#define QVIMAGE_IPPS_CHECKSUM_H

/* Adler-32 and CRC-32 checksums. */

#include "ippdefs.h"

QV_BEGIN_C

QV_END_C

#endif
