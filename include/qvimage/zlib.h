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
/* Flush values of deflate() and inflate(). */
#define Z_NO_FLUSH 0
#define Z_PARTIAL_FLUSH 1
#define Z_SYNC_FLUSH 2
#define Z_FULL_FLUSH 3
#define Z_FINISH 4
#define Z_BLOCK 5

/* Compression levels. */
#define Z_NO_COMPRESSION 0
#define Z_BEST_SPEED 1
#define Z_BEST_COMPRESSION 9
#define Z_DEFAULT_COMPRESSION (-1)

/* Compression strategies. */
#define Z_FILTERED 1
#define Z_HUFFMAN_ONLY 2
#define Z_RLE 3
#define Z_FIXED 4
#define Z_DEFAULT_STRATEGY 0

/* Values of data_type. */
#define Z_BINARY 0
#define Z_TEXT 1
#define Z_ASCII Z_TEXT
#define Z_UNKNOWN 2

/* The one compression method. */
#define Z_DEFLATED 8

#define zlib_version zlibVersion()

typedef voidpf(*alloc_func) OF((voidpf opaque, uInt items, uInt size));
typedef void(*free_func) OF((voidpf opaque, voidpf address));

struct internal_state;

/* The stream record: 112 bytes on this platform. The caller fills the input and output fields
   and, optionally, the allocator; the library advances the counts and owns state. */
typedef struct z_stream_s {
  Bytef* next_in;  /* first input byte not yet consumed */
  uInt avail_in;   /* input bytes left at next_in */
  uLong total_in;  /* input bytes consumed since the stream began */

  Bytef* next_out; /* where the next output byte goes */
  uInt avail_out;  /* room left at next_out */
  uLong total_out; /* output bytes produced since the stream began */

  char* msg;                        /* text of the last error, or null */
  struct internal_state FAR* state; /* the library's own record */

  alloc_func zalloc; /* allocator for the state and window; null: the C library's */
  free_func zfree;   /* its release function */
  voidpf opaque;     /* first argument of both */

  int data_type;  /* deflate: Z_BINARY or Z_TEXT guess; inflate: bit position details */
  uLong adler;    /* running Adler-32 (zlib wrapper) or CRC-32 (gzip wrapper) */
  uLong reserved; /* unused */
} z_stream;

typedef z_stream FAR* z_streamp;

/* A gzip header, written by deflate() after deflateSetHeader() and filled by inflate() after
   inflateGetHeader(). */
typedef struct gz_header_s {
  int text;       /* the data is believed to be text */
  uLong time;     /* modification time, seconds since 1970 */
  int xflags;     /* extra flags (read only) */
  int os;         /* operating system code */
  Bytef* extra;   /* extra field, or null */
  uInt extra_len; /* its length */
  uInt extra_max; /* room at extra when reading */
  Bytef* name;    /* zero-terminated file name, or null */
  uInt name_max;  /* room at name when reading */
  Bytef* comment; /* zero-terminated comment, or null */
  uInt comm_max;  /* room at comment when reading */
  int hcrc;       /* the header has (or gets) a CRC-16 */
  int done;       /* reading: 1 when the header is complete, -1 for a zlib stream */
} gz_header;

typedef gz_header FAR* gz_headerp;

/* Basic functions. */
ZEXTERN const char* ZEXPORT zlibVersion OF((void));
ZEXTERN int ZEXPORT deflate OF((z_streamp strm, int flush));
ZEXTERN int ZEXPORT deflateEnd OF((z_streamp strm));
ZEXTERN int ZEXPORT inflate OF((z_streamp strm, int flush));
ZEXTERN int ZEXPORT inflateEnd OF((z_streamp strm));

/* Advanced functions. */
ZEXTERN int ZEXPORT deflateSetDictionary OF((z_streamp strm, const Bytef* dictionary, uInt dictLength));
ZEXTERN int ZEXPORT deflateCopy OF((z_streamp dest, z_streamp source));
ZEXTERN int ZEXPORT deflateReset OF((z_streamp strm));
ZEXTERN int ZEXPORT deflateParams OF((z_streamp strm, int level, int strategy));
ZEXTERN int ZEXPORT deflateTune OF((z_streamp strm, int good_length, int max_lazy, int nice_length, int max_chain));
ZEXTERN uLong ZEXPORT deflateBound OF((z_streamp strm, uLong sourceLen));
ZEXTERN int ZEXPORT deflatePrime OF((z_streamp strm, int bits, int value));
ZEXTERN int ZEXPORT deflateSetHeader OF((z_streamp strm, gz_headerp head));
ZEXTERN int ZEXPORT inflateSetDictionary OF((z_streamp strm, const Bytef* dictionary, uInt dictLength));
ZEXTERN int ZEXPORT inflateSync OF((z_streamp strm));
ZEXTERN int ZEXPORT inflateCopy OF((z_streamp dest, z_streamp source));
ZEXTERN int ZEXPORT inflateReset OF((z_streamp strm));
ZEXTERN int ZEXPORT inflatePrime OF((z_streamp strm, int bits, int value));
ZEXTERN int ZEXPORT inflateGetHeader OF((z_streamp strm, gz_headerp head));

typedef unsigned(*in_func) OF((void FAR*, unsigned char FAR* FAR*));
typedef int(*out_func) OF((void FAR*, unsigned char FAR*, unsigned));

ZEXTERN int ZEXPORT inflateBack OF((z_streamp strm, in_func in, void FAR* in_desc, out_func out, void FAR* out_desc));
ZEXTERN int ZEXPORT inflateBackEnd OF((z_streamp strm));
ZEXTERN uLong ZEXPORT zlibCompileFlags OF((void));

/* Utility functions. */
ZEXTERN int ZEXPORT compress OF((Bytef * dest, uLongf* destLen, const Bytef* source, uLong sourceLen));
ZEXTERN int ZEXPORT compress2 OF((Bytef * dest, uLongf* destLen, const Bytef* source, uLong sourceLen, int level));
ZEXTERN uLong ZEXPORT compressBound OF((uLong sourceLen));
ZEXTERN int ZEXPORT uncompress OF((Bytef * dest, uLongf* destLen, const Bytef* source, uLong sourceLen));

/* gzip files. */
typedef voidp gzFile;

ZEXTERN gzFile ZEXPORT gzopen OF((const char* path, const char* mode));
ZEXTERN gzFile ZEXPORT gzdopen OF((int fd, const char* mode));
ZEXTERN int ZEXPORT gzsetparams OF((gzFile file, int level, int strategy));
ZEXTERN int ZEXPORT gzread OF((gzFile file, voidp buf, unsigned len));
ZEXTERN int ZEXPORT gzwrite OF((gzFile file, voidpc buf, unsigned len));
ZEXTERN int ZEXPORTVA gzprintf OF((gzFile file, const char* format, ...));
ZEXTERN int ZEXPORT gzputs OF((gzFile file, const char* s));
ZEXTERN char* ZEXPORT gzgets OF((gzFile file, char* buf, int len));
ZEXTERN int ZEXPORT gzputc OF((gzFile file, int c));
ZEXTERN int ZEXPORT gzgetc OF((gzFile file));
ZEXTERN int ZEXPORT gzungetc OF((int c, gzFile file));
ZEXTERN int ZEXPORT gzflush OF((gzFile file, int flush));
ZEXTERN z_off_t ZEXPORT gzseek OF((gzFile file, z_off_t offset, int whence));
ZEXTERN int ZEXPORT gzrewind OF((gzFile file));
ZEXTERN z_off_t ZEXPORT gztell OF((gzFile file));
ZEXTERN int ZEXPORT gzeof OF((gzFile file));
ZEXTERN int ZEXPORT gzdirect OF((gzFile file));
ZEXTERN int ZEXPORT gzclose OF((gzFile file));
ZEXTERN const char* ZEXPORT gzerror OF((gzFile file, int* errnum));
ZEXTERN void ZEXPORT gzclearerr OF((gzFile file));
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
ZEXTERN uLong ZEXPORT adler32_combine OF((uLong adler1, uLong adler2, z_off_t len2));
ZEXTERN uLong ZEXPORT crc32_combine OF((uLong crc1, uLong crc2, z_off_t len2));

/* The version-checking forms behind the Init macros. */
ZEXTERN int ZEXPORT deflateInit_ OF((z_streamp strm, int level, const char* version, int stream_size));
ZEXTERN int ZEXPORT inflateInit_ OF((z_streamp strm, const char* version, int stream_size));
ZEXTERN int ZEXPORT deflateInit2_ OF((z_streamp strm, int level, int method, int windowBits, int memLevel,
                                      int strategy, const char* version, int stream_size));
ZEXTERN int ZEXPORT inflateInit2_ OF((z_streamp strm, int windowBits, const char* version, int stream_size));
ZEXTERN int ZEXPORT inflateBackInit_ OF((z_streamp strm, int windowBits, unsigned char FAR* window,
                                         const char* version, int stream_size));

#define deflateInit(strm, level) deflateInit_((strm), (level), ZLIB_VERSION, (int)sizeof(z_stream))
#define inflateInit(strm) inflateInit_((strm), ZLIB_VERSION, (int)sizeof(z_stream))
#define deflateInit2(strm, level, method, windowBits, memLevel, strategy) \
  deflateInit2_((strm), (level), (method), (windowBits), (memLevel), (strategy), ZLIB_VERSION, (int)sizeof(z_stream))
#define inflateInit2(strm, windowBits) inflateInit2_((strm), (windowBits), ZLIB_VERSION, (int)sizeof(z_stream))
#define inflateBackInit(strm, windowBits, window) \
  inflateBackInit_((strm), (windowBits), (window), ZLIB_VERSION, (int)sizeof(z_stream))

ZEXTERN const char* ZEXPORT zError OF((int));
ZEXTERN int ZEXPORT inflateSyncPoint OF((z_streamp z));
ZEXTERN const uLongf* ZEXPORT get_crc_table OF((void));

#ifdef __cplusplus
}
#endif

#endif /* ZLIB_H */
