#include "codec/lzss_reference.h"

namespace codectest {
namespace {

class BitReader {
 public:
  explicit BitReader(const Bytes& bytes) : bytes_(bytes) {}
  size_t left() const { return bytes_.size() * 8 - position_; }
  uint32_t peek(int width) const {
    uint32_t value = 0;
    for (int i = 0; i < width; ++i) {
      const size_t bit = position_ + i;
      value = value << 1 | ((bytes_[bit / 8] >> (7 - bit % 8)) & 1);
    }
    return value;
  }
  uint32_t take(int width) {
    const uint32_t value = peek(width);
    position_ += width;
    return value;
  }

 private:
  const Bytes& bytes_;
  size_t position_ = 0;
};

}  // namespace

std::vector<LzssToken> lzssTokens(const Bytes& stream) {
  std::vector<LzssToken> tokens;
  BitReader reader(stream);
  size_t output = 0;
  while (reader.left() >= 1) {
    if (reader.peek(1) == 1) {
      if (reader.left() < 9) break;
      reader.take(1);
      tokens.push_back({true, static_cast<uint8_t>(reader.take(8)), 0, 1, output});
      output += 1;
    } else {
      if (reader.left() < 24) break;
      reader.take(1);
      const uint32_t distance = reader.take(15);
      const uint32_t length = reader.take(8) + 3;
      tokens.push_back({false, 0, distance, length, output});
      output += length;
    }
  }
  return tokens;
}

Bytes lzssReferenceDecode(const Bytes& stream) {
  Bytes out;
  for (const LzssToken& token : lzssTokens(stream)) {
    if (token.literal) {
      out.push_back(token.byte);
      continue;
    }
    for (uint32_t k = 0; k < token.length; ++k) {
      const size_t size = out.size();
      out.push_back(token.distance >= 1 && token.distance <= size ? out[size - token.distance] : 0);
    }
  }
  return out;
}

void LzssBitStream::put(uint32_t value, int width) {
  for (int i = width - 1; i >= 0; --i) {
    if (bitsInLast_ == 8) {
      bytes_.push_back(0);
      bitsInLast_ = 0;
    }
    bytes_.back() |= static_cast<uint8_t>(((value >> i) & 1) << (7 - bitsInLast_));
    ++bitsInLast_;
  }
}

void LzssBitStream::literal(uint8_t byte) {
  put(1, 1);
  put(byte, 8);
}

void LzssBitStream::match(uint32_t distance, uint32_t length) {
  put(0, 1);
  put(distance, 15);
  put(length - 3, 8);
}

Bytes LzssBitStream::bytes() const { return bytes_; }

Bytes lzssOtherEncode(const Bytes& data) {
  std::vector<uint32_t> distances;
  for (uint32_t d = 1; d <= 64; ++d) distances.push_back(d);
  for (uint32_t d : {100u, 257u, 1000u, 4099u, 20000u, 32767u}) distances.push_back(d);
  LzssBitStream stream;
  size_t p = 0;
  while (p < data.size()) {
    uint32_t bestLength = 0;
    uint32_t bestDistance = 0;
    for (uint32_t d : distances) {
      if (d > p) break;
      uint32_t length = 0;
      while (length < 258 && p + length < data.size() && data[p + length] == data[p + length - d]) ++length;
      if (length > bestLength) {
        bestLength = length;
        bestDistance = d;
      }
    }
    if (bestLength >= 3) {
      stream.match(bestDistance, bestLength);
      p += bestLength;
    } else {
      stream.literal(data[p]);
      p += 1;
    }
  }
  return stream.bytes();
}

}  // namespace codectest
