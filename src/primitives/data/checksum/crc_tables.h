#ifndef QV_PRIMITIVES_DATA_CHECKSUM_CRC_TABLES_H
#define QV_PRIMITIVES_DATA_CHECKSUM_CRC_TABLES_H

// The CRC-32 tables of the reflected polynomial 0xEDB88320, computed at compile time. Each tier
// carries its own copy.
//
// zlib_crc_tab is the byte-wise table: entry n is the register after the byte n went through an
// empty register. crc_table_il8_o32 to crc_table_il8_o88 are the eight tables of the slice-by-eight
// form: o32 equals zlib_crc_tab, and each next one advances the byte by one more zero byte, so
// that o88 serves the first byte of an 8-byte word and o32 the last.

#include "primitives/common/tier.h"

namespace QV_TIER {

struct CrcSliceTables {
  Ipp32u slice[8][256];
};

constexpr CrcSliceTables buildCrcSliceTables() {
  CrcSliceTables tables{};
  for (Ipp32u n = 0; n < 256; ++n) {
    Ipp32u c = n;
    for (int bit = 0; bit < 8; ++bit) c = (c & 1) ? (c >> 1) ^ 0xEDB88320u : c >> 1;
    tables.slice[0][n] = c;
  }
  for (int k = 1; k < 8; ++k) {
    for (Ipp32u n = 0; n < 256; ++n) {
      const Ipp32u previous = tables.slice[k - 1][n];
      tables.slice[k][n] = (previous >> 8) ^ tables.slice[0][previous & 0xFF];
    }
  }
  return tables;
}

inline constexpr CrcSliceTables crcSliceTables = buildCrcSliceTables();

inline constexpr const Ipp32u (&zlib_crc_tab)[256] = crcSliceTables.slice[0];
inline constexpr const Ipp32u (&crc_table_il8_o32)[256] = crcSliceTables.slice[0];
inline constexpr const Ipp32u (&crc_table_il8_o40)[256] = crcSliceTables.slice[1];
inline constexpr const Ipp32u (&crc_table_il8_o48)[256] = crcSliceTables.slice[2];
inline constexpr const Ipp32u (&crc_table_il8_o56)[256] = crcSliceTables.slice[3];
inline constexpr const Ipp32u (&crc_table_il8_o64)[256] = crcSliceTables.slice[4];
inline constexpr const Ipp32u (&crc_table_il8_o72)[256] = crcSliceTables.slice[5];
inline constexpr const Ipp32u (&crc_table_il8_o80)[256] = crcSliceTables.slice[6];
inline constexpr const Ipp32u (&crc_table_il8_o88)[256] = crcSliceTables.slice[7];

// One byte through the byte-wise table, on the inverted register.
inline __attribute__((always_inline)) Ipp32u crcByte(Ipp32u crc, Ipp8u byte) {
  return zlib_crc_tab[(crc ^ byte) & 0xFF] ^ (crc >> 8);
}

}  // namespace QV_TIER

#endif
