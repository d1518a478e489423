#ifndef QV_TESTS_CODEC_LZSS_DRIVER_H
#define QV_TESTS_CODEC_LZSS_DRIVER_H

// Drives the LZSS primitives over whole buffers, in one call or in many.

#include <vector>

#include "codec/codec_support.h"

namespace codectest {

// Encodes data in calls over pieces of the given sizes (cycled; the whole source at once when
// empty), each call's output budget at most outputBudget bytes, then flushes.
Bytes lzssEncode(const Bytes& data, const std::vector<int>& pieceSizes = {}, int outputBudget = 1 << 30);

// Decodes a stream with an output budget of `budget` bytes a call, expecting `expectedSize`
// bytes in all; every call but the last answers ippStsDstSizeLessExpected.
Bytes lzssDecode(const Bytes& stream, int budget, size_t expectedSize);

}  // namespace codectest

#endif
