#ifndef QV_CLASSES_SCALE_FRONT_H
#define QV_CLASSES_SCALE_FRONT_H

// The square-pixel front as the scale operations call it: one call for the whole images, on the
// calling thread, with factors destination / source and no shift.

#include <cstdint>

#include "qvimage/QVILTypes.h"

namespace qv::scale {

// Four channels of 8 or 16 bits (any other depth calls no resize). A size query or resize that
// fails is logged as "Scale initialization error: <status text> srcSize: {w, h} destSize: {w, h}".
void squarePixelRGBA(const vImage_Buffer* src, const vImage_Buffer* dst, uint32_t flag, uint64_t bitsPerChannel);

// One 8-bit channel; statuses are not looked at and nothing is logged.
void squarePixelPlanar8(const vImage_Buffer* src, const vImage_Buffer* dst, uint32_t flag);

}  // namespace qv::scale

#endif
