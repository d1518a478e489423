#ifndef QVIMAGE_QVIMAGE_H
#define QVIMAGE_QVIMAGE_H

/* Everything a C client of the library needs: services, image and data primitives, records. */

#include "QVILTypes.h"
#include "ippcore.h"
#include "ippi.h"
#include "ipps.h"

#endif
