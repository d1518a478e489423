#ifndef QVIMAGE_QVILRESIZE_H
#define QVIMAGE_QVILRESIZE_H

#include <cstdint>

#include "QVILTypes.h"

// The axis of imageLibMirrorRGBA: a signed 32-bit value with three legal values.
enum MirrorAxis : int32_t {
  MirrorAxisHorizontal = 0,  // row order reversed: the top row becomes the bottom row
  MirrorAxisVertical = 1,    // the pixels of each row reversed: the left column becomes the right one
  MirrorAxisBoth = 2,        // both: a turn of 180 degrees
};

// Scaling, mirroring, rotation and warps of whole images. Each operation takes its region from
// one buffer (named in its comment); the other buffer must be at least as large.
class QV_API QVILResize {
 public:
  // + sharedInstance
  static QVILResize* sharedInstance();

  // >>> scale operations
  // <<< scale operations

  // >>> mirror operations (region from destination)
  // - imageLibFlipRGBA:destination:bitsPerChannel:
  //   Mirror over axis 0: top and bottom change places.
  bool imageLibFlipRGBA(const vImage_Buffer* source, const vImage_Buffer* destination, uint64_t bitsPerChannel);
  // - imageLibFlopRGBA:destination:bitsPerChannel:
  //   Mirror over axis 1: left and right change places.
  bool imageLibFlopRGBA(const vImage_Buffer* source, const vImage_Buffer* destination, uint64_t bitsPerChannel);
  // - imageLibMirrorRGBA:destination:bitsPerChannel:axis:
  //   8 or 16 bits a channel; any other depth does nothing and answers true, without a message.
  //   A refused mirror logs "QVImageLib mirror operation failed with error: <status text>" and
  //   answers false. The same data pointer and rowBytes mirror in place.
  bool imageLibMirrorRGBA(const vImage_Buffer* source, const vImage_Buffer* destination, uint64_t bitsPerChannel,
                          int32_t axis);
  // <<< mirror operations

  // >>> rotation and warp operations
  // <<< rotation and warp operations

 private:
  QVILResize() = default;
};

#endif
