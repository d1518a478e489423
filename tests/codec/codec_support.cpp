#include "codec/codec_support.h"

#include <cstdint>
#include <cstring>
#include <random>

#include "qvimage/ippcore.h"

namespace codectest {

Bytes randomBytes(size_t length, uint32_t seed) {
  std::mt19937 generator(seed);
  Bytes bytes(length);
  for (uint8_t& b : bytes) b = static_cast<uint8_t>(generator() >> 24);
  return bytes;
}

Bytes textLikeBytes(size_t length, uint32_t seed) {
  static const char* const words[] = {"the ",     "image ", "library ", "compresses ", "bytes ",   "of ",
                                      "pixels ",  "with ",  "runs ",    "and ",        "matches ", "window ",
                                      "history ", "token ", "stream ",  "\n"};
  std::mt19937 generator(seed);
  Bytes bytes;
  bytes.reserve(length + 16);
  while (bytes.size() < length) {
    const char* word = words[generator() % 16];
    bytes.insert(bytes.end(), word, word + strlen(word));
  }
  bytes.resize(length);
  return bytes;
}

Bytes runHeavyBytes(size_t length, uint32_t seed) {
  std::mt19937 generator(seed);
  Bytes bytes;
  bytes.reserve(length + 600);
  while (bytes.size() < length) {
    const auto value = static_cast<uint8_t>(generator() % 4 * 60);
    bytes.insert(bytes.end(), 1 + generator() % 600, value);
  }
  bytes.resize(length);
  return bytes;
}

uint32_t referenceAdler32(uint32_t start, const uint8_t* data, size_t length) {
  uint64_t s1 = start & 0xFFFF;
  uint64_t s2 = start >> 16;
  for (size_t i = 0; i < length; ++i) {
    s1 = (s1 + data[i]) % 65521;
    s2 = (s2 + s1) % 65521;
  }
  return static_cast<uint32_t>((s2 % 65521) << 16 | (s1 % 65521));
}

uint32_t referenceCrc32(uint32_t start, const uint8_t* data, size_t length) {
  uint32_t crc = ~start;
  for (size_t i = 0; i < length; ++i) {
    crc ^= data[i];
    for (int bit = 0; bit < 8; ++bit) crc = (crc & 1) ? (crc >> 1) ^ 0xEDB88320u : crc >> 1;
  }
  return ~crc;
}

OffsetCopy::OffsetCopy(const Bytes& data, size_t offset) : storage_(data.size() + offset + 128) {
  const auto address = reinterpret_cast<uintptr_t>(storage_.data());
  start_ = (64 - address % 64) % 64 + offset;
  if (!data.empty()) memcpy(storage_.data() + start_, data.data(), data.size());
}

bool processorHasPclmul() {
  Ipp64u features = 0;
  ippGetCpuFeatures(&features, nullptr);
  return (features & 0x800) != 0;
}

}  // namespace codectest
