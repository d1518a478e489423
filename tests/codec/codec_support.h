#ifndef QV_TESTS_CODEC_CODEC_SUPPORT_H
#define QV_TESTS_CODEC_CODEC_SUPPORT_H

// Test data and plain reference checksums for the codec suite.

#include <cstddef>
#include <cstdint>
#include <vector>

namespace codectest {

using Bytes = std::vector<uint8_t>;

// Random bytes from a fixed seed.
Bytes randomBytes(size_t length, uint32_t seed);
// Words and spaces from a small vocabulary: many repeats at many distances.
Bytes textLikeBytes(size_t length, uint32_t seed);
// Runs of random lengths (1 to 600) of a few byte values.
Bytes runHeavyBytes(size_t length, uint32_t seed);

// Bit by bit, from the definitions: Adler-32 (RFC 1950) and CRC-32 of the reflected polynomial
// 0xEDB88320 (RFC 1952), each continued from a running value in the form zlib returns.
uint32_t referenceAdler32(uint32_t start, const uint8_t* data, size_t length);
uint32_t referenceCrc32(uint32_t start, const uint8_t* data, size_t length);

// A block whose start lies `offset` bytes past a 64-byte boundary, holding a copy of data.
class OffsetCopy {
 public:
  OffsetCopy(const Bytes& data, size_t offset);
  const uint8_t* data() const { return storage_.data() + start_; }

 private:
  std::vector<uint8_t> storage_;
  size_t start_;
};

// The processor can run the folding form of the CRC (PCLMULQDQ present).
bool processorHasPclmul();

}  // namespace codectest

#endif
