// CRC-32, slice-by-eight table form: eight bytes a round through the eight slice tables once the
// source is aligned to 8, the rest two bytes a round and a last single byte.

#include "primitives/common/tier_util.h"
#include "primitives/data/checksum/checksum_kernels.h"
#include "primitives/data/checksum/crc_tables.h"

namespace QV_TIER {
namespace {

QV_INLINE Ipp32u crcEightBytes(Ipp32u crc, Ipp64u word) {
  const Ipp32u front = crc ^ static_cast<Ipp32u>(word);
  const Ipp32u back = static_cast<Ipp32u>(word >> 32);
  return crc_table_il8_o88[front & 0xFF] ^ crc_table_il8_o80[(front >> 8) & 0xFF] ^
         crc_table_il8_o72[(front >> 16) & 0xFF] ^ crc_table_il8_o64[front >> 24] ^ crc_table_il8_o56[back & 0xFF] ^
         crc_table_il8_o48[(back >> 8) & 0xFF] ^ crc_table_il8_o40[(back >> 16) & 0xFF] ^ crc_table_il8_o32[back >> 24];
}

}  // namespace

Ipp32u ownsCRC32_8u(const Ipp8u* src, int len, Ipp32u crc) {
  crc = ~crc;
  if (len >= 15) {
    for (; !isAligned(src, 8); ++src, --len) crc = crcByte(crc, *src);
    for (; len >= 8; src += 8, len -= 8) crc = crcEightBytes(crc, load64(src));
  }
  for (; len >= 2; src += 2, len -= 2) {
    crc = crc_table_il8_o32[(crc ^ src[0]) & 0xFF] ^ (crc >> 8);
    crc = crc_table_il8_o32[(crc ^ src[1]) & 0xFF] ^ (crc >> 8);
  }
  if (len == 1) crc = crc_table_il8_o32[(crc ^ *src) & 0xFF] ^ (crc >> 8);
  return ~crc;
}

}  // namespace QV_TIER
