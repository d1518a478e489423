#ifndef QVIMAGE_QVILSHAREDINTERNAL_H
#define QVIMAGE_QVILSHAREDINTERNAL_H

#include <cstdint>

#include "QVILTypes.h"

// Facts about the machine and the library's images, shared by the other classes.
class QV_API QVILSharedInternal {
 public:
  // + numberOfAvailableLogicalCPUs  Read on the first call and kept; a failed read gives 0.
  static uint32_t numberOfAvailableLogicalCPUs();
  // + numberOfAvailablePhysicalCPUs  The same, in a cache of its own.
  static uint32_t numberOfAvailablePhysicalCPUs();
  // + minimalDimensionsToUseMultithreading  500: a copy splits only above it in both directions.
  static int32_t minimalDimensionsToUseMultithreading();
  // + numberOfChannelsPerPixel  4.
  static uint32_t numberOfChannelsPerPixel();
  // + bitmapInfoForBitsPerChannel:  0x1001 for exactly 16, 0x2002 for every other value.
  static uint32_t bitmapInfoForBitsPerChannel(uint32_t bitsPerChannel);
  // + isMavericksOrLater  True: this build has its own 16-bit scaler.
  static bool isMavericksOrLater();

  QVILSharedInternal() = delete;
};

#endif
