// QVILCompression: LZSS of whole buffers.
//
// LZSS can grow data by an eighth plus a byte, so the output is tried in buffers of the source's
// length and then 1 MiB larger each time. Any failure counts as too small. Before a fifty-first
// try the assertion handler is called; should it return, that try is made and ends the loop.

#include <cstdio>
#include <cstdlib>

#include "platform/assertion.h"
#include "qvimage/QVILCompression.h"
#include "qvimage/ipps_lzss.h"

namespace {

constexpr int kCapacityStep = 1048576;
constexpr int kLastAttempt = 51;

void reportTooManyAttempts(const QVILCompression* self, int sourceLength, int capacity) {
  char description[320];
  snprintf(description, sizeof description,
           "-[QVILCompression intelCompressLZSS:sourceLength:destinationLength:] (object %p), QVILCompression:252: "
           "Failed to save block with source length:%d buffer length:%d",
           static_cast<const void*>(self), sourceLength, capacity);
  qv::platform::assertionFailed(description);
}

}  // namespace

uint8_t* QVILCompression::intelCompressLZSS(const uint8_t* source, uint64_t sourceLength, uint64_t* destinationLength) {
  const int length = static_cast<int>(static_cast<uint32_t>(sourceLength));
  int attempt = 1;
  int extra = 0;
  int capacity = 0;
  uint8_t* buffer = nullptr;
  for (;;) {
    free(buffer);
    if (attempt == kLastAttempt) reportTooManyAttempts(this, length, capacity);
    capacity = static_cast<int>(static_cast<uint32_t>(length) + static_cast<uint32_t>(extra));  // 32-bit, wrapping
    buffer = static_cast<uint8_t*>(malloc(static_cast<size_t>(capacity)));
    if (CompressLZSS(const_cast<uint8_t*>(source), length, buffer, &capacity) == 0) break;
    if (attempt >= kLastAttempt) break;
    ++attempt;
    extra += kCapacityStep;
  }
  if (destinationLength != nullptr) *destinationLength = static_cast<uint64_t>(static_cast<int64_t>(capacity));
  return buffer;
}

int32_t QVILCompression::intelDecompressLZSS(const uint8_t* source, uint64_t sourceLength, uint8_t* destination,
                                             int32_t destLength) {
  int decoded = destLength;
  DecompressLZSS(const_cast<uint8_t*>(source), static_cast<int>(sourceLength), destination,
                 &decoded);  // status ignored
  return decoded;
}
