#ifndef QV_TESTS_CODEC_RLE_REFERENCE_H
#define QV_TESTS_CODEC_RLE_REFERENCE_H

// The run-length byte algorithms written out plainly, one byte at a time.

#include "codec/codec_support.h"

namespace codectest {

struct RleResult {
  Bytes out;        // the bytes written
  size_t consumed;  // source bytes used
};

// The encoder with a capacity: tokens while three output bytes are free, then raw bytes.
RleResult rleReferenceEncode(const Bytes& source, size_t capacity);
// The decoder with a capacity: runs whole or not at all, the last two source bytes literal.
RleResult rleReferenceDecode(const Bytes& source, size_t capacity);

}  // namespace codectest

#endif
