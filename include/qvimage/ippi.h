#ifndef QVIMAGE_IPPI_H
#define QVIMAGE_IPPI_H

/* Image primitives, one header per family. */

#include "ippi_arith.h"
#include "ippi_compose.h"
#include "ippi_copy.h"
#include "ippi_geometry.h"
#include "ippi_region.h"
#include "ippi_resize.h"
#include "ippi_resize_sqrpixel.h"
#include "ippi_warp.h"

#endif
