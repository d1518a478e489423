// QVILConversion: bit reduction with dithering, in place through a copy of the buffer.

#include <cstdlib>
#include <cstring>

#include "classes/buffer_region.h"
#include "qvimage/QVILConversion.h"
#include "qvimage/ippi.h"

namespace {

// The public reduceType 0-4 to the primitive's dither type: the public numbering swaps Stucki
// and Jarvis-Judice-Ninke and moves Floyd-Steinberg.
constexpr IppiDitherType kDitherOfReduceType[5] = {ippDitherNone, ippDitherStucki, ippDitherFS, ippDitherJJN,
                                                   ippDitherBayer};

// A reduceType above 4 has no dither type of its own; it goes on as a value above 4, which the
// primitive answers without writing anything.
constexpr int kTypeThatDoesNothing = 5;

IppiDitherType ditherTypeOf(int32_t reduceType) {
  const auto index = static_cast<uint32_t>(reduceType);
  if (index > 4) return static_cast<IppiDitherType>(kTypeThatDoesNothing);
  return kDitherOfReduceType[index];
}

}  // namespace

// A copy of height x rowBytes bytes from the plain heap is the source and the buffer's own pixels
// the destination, with the same step. A null data pointer is not copied from: it goes on to the
// primitive, which refuses it. The status is dropped; the answer is always true.
bool QVILConversion::imageLibReduceBits(const vImage_Buffer* buffer, int32_t noise, int32_t levels,
                                        int32_t reduceType) {
  const size_t bytes = static_cast<size_t>(buffer->height * buffer->rowBytes);
  void* copy = malloc(bytes == 0 ? 1 : bytes);
  if (copy == nullptr) return true;
  if (buffer->data != nullptr) memcpy(copy, buffer->data, bytes);
  const int step = qv::frame::stepOf(buffer);
  ippiReduceBits_8u_C4R(static_cast<const Ipp8u*>(copy), step, qv::frame::pixelsOf(buffer), step,
                        qv::frame::regionOf(buffer), noise, ditherTypeOf(reduceType), levels);
  free(copy);
  return true;
}
