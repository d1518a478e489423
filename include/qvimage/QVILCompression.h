#ifndef QVIMAGE_QVILCOMPRESSION_H
#define QVIMAGE_QVILCOMPRESSION_H

#include <cstdint>

#include "QVILTypes.h"

// Whole-buffer compression: run-length coding and LZSS (formats in ipps_rle.h and ipps_lzss.h).
// The compressing operations return a buffer from the C allocator, which the caller frees with
// free(). None of them reports a failure except through the lengths it returns.
class QV_API QVILCompression {
 public:
  // + sharedInstance
  static QVILCompression* sharedInstance();

  // --- run-length coding ---
  // - intelCompressRLE:sourceLength:destinationLength:
  //   Encodes the low 32 bits of sourceLength bytes into a buffer of sourceLength bytes, and
  //   stores the stream's length in *destinationLength when that is not null. A stream longer
  //   than the source is cut at sourceLength bytes, silently: decoding it gives only the front
  //   of the source. A sourceLength of 0 gives length 0 and a message on standard output.
  uint8_t* intelCompressRLE(const uint8_t* source, uint64_t sourceLength, uint64_t* destinationLength);
  // - intelDecompressRLE:sourceLength:destination:destLength:
  //   Decodes into the caller's destination of destLength bytes and answers the bytes written.
  int32_t intelDecompressRLE(const uint8_t* source, uint64_t sourceLength, uint8_t* destination, int32_t destLength);

  // --- LZSS ---
  // - intelCompressLZSS:sourceLength:destinationLength:
  //   Tries output buffers of sourceLength, then 1 MiB more each time, until the stream fits.
  //   A fifty-first try is preceded by an assertion failure through the installed handler
  //   ("Failed to save block with source length:... buffer length:..."); if the handler returns,
  //   that try is made and its buffer returned whatever came of it.
  uint8_t* intelCompressLZSS(const uint8_t* source, uint64_t sourceLength, uint64_t* destinationLength);
  // - intelDecompressLZSS:sourceLength:destination:destLength:
  //   Decodes the whole stream into destination, which must hold all of it (destLength is not a
  //   limit), and answers the decoded length.
  int32_t intelDecompressLZSS(const uint8_t* source, uint64_t sourceLength, uint8_t* destination, int32_t destLength);

  // >>> deflate stream operations
  // <<< deflate stream operations

 private:
  QVILCompression() = default;
};

#endif
