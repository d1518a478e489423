#ifndef QV_TESTS_CODEC_LZSS_REFERENCE_H
#define QV_TESTS_CODEC_LZSS_REFERENCE_H

// The LZSS stream format written out plainly: tokens packed most significant bit first, a
// literal as 1 and the byte, a match as 0, the distance (15 bits) and the length - 3 (8 bits),
// the last byte filled with 0 bits, no header and no end marker.

#include <cstdint>
#include <vector>

#include "codec/codec_support.h"

namespace codectest {

struct LzssToken {
  bool literal;
  uint8_t byte;       // literal
  uint32_t distance;  // match
  uint32_t length;    // match, 3 to 258
  size_t outputAt;    // where the token's bytes begin in the decoded data
};

// Reads tokens until fewer bits remain than the next token needs. A distance beyond the data
// decoded so far reads zero bytes, as a decoder whose history starts all zero does.
std::vector<LzssToken> lzssTokens(const Bytes& stream);
Bytes lzssReferenceDecode(const Bytes& stream);

// Writes tokens as bits.
class LzssBitStream {
 public:
  void literal(uint8_t byte);
  void match(uint32_t distance, uint32_t length);
  // The bits so far, the last byte filled with 0 bits.
  Bytes bytes() const;

 private:
  void put(uint32_t value, int width);
  Bytes bytes_;
  int bitsInLast_ = 8;
};

// A valid encoding unlike the library's: greedy, over a few fixed distances (1 to 64 and a handful
// up to 32767), matches allowed up to the very end of the data.
Bytes lzssOtherEncode(const Bytes& data);

}  // namespace codectest

#endif
