#ifndef QVIMAGE_IPPS_H
#define QVIMAGE_IPPS_H

/* Data primitives, one header per family. */

#include "ipps_checksum.h"
#include "ipps_lzss.h"
#include "ipps_memory.h"
#include "ipps_random.h"
#include "ipps_rle.h"

#endif
