/* zlib.h: the zlib 1.2.3 interface over the library's compression primitives.
   Streams follow RFC 1950 (zlib), RFC 1951 (deflate) and RFC 1952 (gzip). */

#ifndef ZLIB_H
#define ZLIB_H

#include "zconf.h"

#ifdef __cplusplus
extern "C" {
#endif

#define ZLIB_VERSION "1.2.3"
#define ZLIB_VERNUM 0x1230

/* Return codes. */
#define Z_OK 0
#define Z_STREAM_END 1
#define Z_NEED_DICT 2
#define Z_ERRNO (-1)
#define Z_STREAM_ERROR (-2)
#define Z_DATA_ERROR (-3)
#define Z_MEM_ERROR (-4)
#define Z_BUF_ERROR (-5)
#define Z_VERSION_ERROR (-6)

#define Z_NULL 0

/* >>> stream API */
/* <<< stream API */

/* Checksums.

   adler32: the Adler-32 of buf[0..len) continued from adler; adler32(0L, Z_NULL, 0) gives the
   start value 1. A null buf gives 1. Inputs of up to 32 bytes are summed here, longer ones go to
   ippsAdler32_8u.

   crc32: the CRC-32 of buf[0..len) continued from crc; crc32(0L, Z_NULL, 0) gives the start
   value 0. A null buf gives 0. The work goes to ippsCRC32_8u, which reads the length as signed:
   a len of 0, or of 0x80000000 and above, returns crc unchanged. */
ZEXTERN uLong ZEXPORT adler32 OF((uLong adler, const Bytef* buf, uInt len));
ZEXTERN uLong ZEXPORT crc32 OF((uLong crc, const Bytef* buf, uInt len));

#ifdef __cplusplus
}
#endif

#endif /* ZLIB_H */
