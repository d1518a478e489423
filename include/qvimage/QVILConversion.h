#ifndef QVIMAGE_QVILCONVERSION_H
#define QVIMAGE_QVILCONVERSION_H

#include <cstdint>

#include "QVILTypes.h"

// Copies, fills, channel moves, depth conversion and pixel arithmetic on whole images.
// Each operation takes its region from one buffer (named in its comment); the other buffer must
// be at least as large. Most operations answer true whatever the primitive said.
class QV_API QVILConversion {
 public:
  // + sharedInstance
  static QVILConversion* sharedInstance();

  // --- copies (region from dest) ---
  // - imageLibCopyRGBA:dest:multithreadOptions:bitsPerChannel:
  //   8 or 16 bits; other depths are logged and refused. Splits into strips by rows.
  bool imageLibCopyRGBA(const vImage_Buffer* src, const vImage_Buffer* dest, uint32_t multithreadOptions,
                        uint64_t bitsPerChannel);
  // - imageLibCopyRGBA8888:dest:multithreadOptions:
  bool imageLibCopyRGBA8888(const vImage_Buffer* src, const vImage_Buffer* dest, uint32_t multithreadOptions);
  // - imageLibCopyRGBA16:dest:multithreadOptions:
  bool imageLibCopyRGBA16(const vImage_Buffer* src, const vImage_Buffer* dest, uint32_t multithreadOptions);
  // - imageLibCopyRGBA8888:dest:
  bool imageLibCopyRGBA8888(const vImage_Buffer* src, const vImage_Buffer* dest);
  // - imageLibCopyRGBA16:dest:
  bool imageLibCopyRGBA16(const vImage_Buffer* src, const vImage_Buffer* dest);

  // >>> copy, fill and channel operations
  // <<< copy, fill and channel operations

  // >>> depth conversion and arithmetic operations
  // <<< depth conversion and arithmetic operations

  // >>> composition, noise and dithering operations
  // <<< composition, noise and dithering operations

 private:
  QVILConversion() = default;
};

#endif
