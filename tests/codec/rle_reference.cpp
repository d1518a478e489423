#include "codec/rle_reference.h"

namespace codectest {

RleResult rleReferenceEncode(const Bytes& source, size_t capacity) {
  RleResult result{{}, 0};
  size_t& i = result.consumed;
  Bytes& out = result.out;
  while (out.size() + 2 < capacity && i < source.size()) {
    const uint8_t c = source[i++];
    out.push_back(c);
    size_t repeats = 0;
    while (repeats < 256 && i + repeats < source.size() && source[i + repeats] == c) ++repeats;
    if (repeats > 0) {
      out.push_back(c);
      out.push_back(static_cast<uint8_t>(repeats - 1));
      i += repeats;
    }
  }
  while (out.size() < capacity && i < source.size()) out.push_back(source[i++]);
  return result;
}

RleResult rleReferenceDecode(const Bytes& source, size_t capacity) {
  RleResult result{{}, 0};
  size_t& i = result.consumed;
  Bytes& out = result.out;
  while (i + 2 < source.size() && out.size() < capacity) {
    const uint8_t c = source[i];
    if (source[i + 1] != c) {
      out.push_back(c);
      i += 1;
      continue;
    }
    const size_t count = source[i + 2] + 2u;
    if (out.size() + count > capacity) break;
    out.insert(out.end(), count, c);
    i += 3;
  }
  if (i + 2 >= source.size())
    while (i < source.size() && out.size() < capacity) out.push_back(source[i++]);
  return result;
}

}  // namespace codectest
