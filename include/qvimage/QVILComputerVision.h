#ifndef QVIMAGE_QVILCOMPUTERVISION_H
#define QVIMAGE_QVILCOMPUTERVISION_H

#include <cstdint>

#include "QVILTypes.h"

// Region tools on planar 8-bit images.
class QV_API QVILComputerVision {
 public:
  // + sharedInstance
  static QVILComputerVision* sharedInstance();

  // - floodFillGetSize_Grad:bufSize:
  //   The scratch size in bytes for floodFillRange4ConPlanar on an image of size (width and
  //   height truncated to integers). Answers true; a refused size leaves *bufSize as it was.
  bool floodFillGetSize_Grad(CGSize size, int32_t* bufSize);

  // - floodFillRange4ConPlanar:seedPoint:newVal:minDelta:maxDelta:filledRegion:tempBuffer:
  //   Repaints with newVal the four-connected region around the seed (coordinates truncated)
  //   whose values lie within [seed - minDelta, seed + maxDelta], clamped to 0..255, using
  //   tempBuffer as scratch (sized by floodFillGetSize_Grad). On success filledRegion, if not
  //   null, receives the bounding box; when the seed already holds newVal nothing is written
  //   and the rectangle is left undefined. On a refused argument it receives the zero rectangle
  //   and the answer is false. Nothing is logged.
  bool floodFillRange4ConPlanar(vImage_Buffer* image, CGPoint seedPoint, uint8_t newVal, uint8_t minDelta,
                                uint8_t maxDelta, CGRect* filledRegion, uint8_t* tempBuffer);

 private:
  QVILComputerVision() = default;
};

#endif
