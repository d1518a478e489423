// The zlib entry points adler32 and crc32 over the checksum primitives.
//
// adler32 keeps short inputs to itself: one byte with a conditional subtraction, up to 32 bytes
// summed in 16-byte rounds with a single reduction at the end. Longer inputs go to the primitive.
// crc32 always calls the primitive and returns what the running value holds afterwards, whatever
// the status, so a length that the primitive refuses returns the start value.

#include "qvimage/ipps_checksum.h"
#include "qvimage/zlib.h"

namespace {

constexpr uLong kAdlerModulus = 65521;
constexpr uInt kLongestInlineInput = 32;

uLong adlerOneByte(uLong adler, Bytef byte) {
  uLong s1 = adler & 0xFFFF;
  uLong s2 = (adler >> 16) & 0xFFFF;
  s1 += byte;
  if (s1 >= kAdlerModulus) s1 -= kAdlerModulus;
  s2 += s1;
  if (s2 >= kAdlerModulus) s2 -= kAdlerModulus;
  return s2 << 16 | s1;
}

// At most 32 bytes: the sums cannot leave 32 bits before the one reduction at the end.
uLong adlerShort(uLong adler, const Bytef* buf, uInt len) {
  uLong s1 = adler & 0xFFFF;
  uLong s2 = (adler >> 16) & 0xFFFF;
  for (; len >= 16; buf += 16, len -= 16) {
    for (int i = 0; i < 16; ++i) {
      s1 += buf[i];
      s2 += s1;
    }
  }
  for (; len > 0; ++buf, --len) {
    s1 += *buf;
    s2 += s1;
  }
  return (s2 % kAdlerModulus) << 16 | (s1 % kAdlerModulus);
}

}  // namespace

extern "C" {

uLong ZEXPORT adler32(uLong adler, const Bytef* buf, uInt len) {
  if (buf == Z_NULL) return 1;
  if (len == 1) return adlerOneByte(adler, buf[0]);
  if (len <= kLongestInlineInput) return adlerShort(adler, buf, len);
  Ipp32u value = static_cast<Ipp32u>(adler);
  ippsAdler32_8u(buf, len, &value);  // status not looked at
  return value;
}

uLong ZEXPORT crc32(uLong crc, const Bytef* buf, uInt len) {
  if (buf == Z_NULL) return 0;
  Ipp32u value = static_cast<Ipp32u>(crc);
  ippsCRC32_8u(buf, static_cast<int>(len), &value);  // status not looked at
  return value;
}

}  // extern "C"
