#ifndef QVIMAGE_IPPI_COMPOSE_H
#define QVIMAGE_IPPI_COMPOSE_H

/* Alpha composition, Gaussian noise and bit reduction with dithering. */

#include "ippdefs.h"

QV_BEGIN_C

QV_END_C

#endif
