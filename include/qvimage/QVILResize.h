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
  // - imageLibAffineWarpIntelPlanar8:destination:interpolationMode:transform:
  //   Warps an 8-bit plane by the transform (x' = a x + c y + tx, y' = b x + d y + ty, source to
  //   destination), over the whole source and the whole destination, with smooth edges. Mode 0
  //   nearest, 1 linear, 2 cubic; any other mode writes nothing. The primitive's status is not
  //   looked at: the answer is true whatever happened, and nothing is logged.
  bool imageLibAffineWarpIntelPlanar8(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                                      vImage_AffineTransform transform);
  // - imageLibRotateIntelPlanar8:destination:interpolationMode:angle:
  //   Turns an 8-bit plane by angle degrees (anticlockwise on the screen) and shifts it so that
  //   the turned picture's bounding box starts at the destination's (0, 0); pixels outside the
  //   turned picture keep what they held. Quarter turns are exact copies. Mode 0 nearest,
  //   1 linear, 2 cubic, all with smooth edges; any other mode writes nothing. The answer is
  //   true whatever happened, and nothing is logged.
  bool imageLibRotateIntelPlanar8(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                                  float angle);
  // - imageLibRotateRGBA:destination:interpolationMode:angle:bitsPerChannel:
  //   The same for RGBA images of 8 or 16 bits a channel (other depths: nothing done, true).
  //   Mode 0 nearest, 1 linear, every other mode cubic, all with smooth edges. A status other
  //   than success, warnings included, is logged as "QVImageLib mirror operation failed with
  //   error: <status text>" and answers false.
  bool imageLibRotateRGBA(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode, float angle,
                          uint64_t bitsPerChannel);
  // - imageLibPerspectiveWarpRGBA8888:destination:quad:interpolationMode:bounds:
  //   Maps the whole RGBA8888 source onto the quad and hands back the part of the result inside
  //   the quad's bounding box. Mode 1 linear, 2 cubic (both with smooth edges); mode 0 is
  //   refused by the warp ("warp perspective error: <status text>", false); any mode of 3 or
  //   more, or negative, logs "ERROR: Unsupported interpolation mode: <mode>" and answers false.
  //   Quads reaching into negative coordinates are handled by warping into a larger picture.
  //
  //   On success the destination record is replaced: width and height are the box's, rowBytes
  //   is the row-alignment function of QVILLibraryController applied to width * 4 (the function
  //   must be set, not null), and data is a NEW block of height * rowBytes bytes from the plain
  //   heap (malloc/realloc). The CALLER OWNS THAT BLOCK AND RELEASES IT WITH free(), never with
  //   ippFree or ippsFree. The pointer the record held before is overwritten without being
  //   freed: keep it beforehand if it is yours to release. bounds receives the box in the quad's
  //   coordinates (x, y) and the destination's size.
  //
  //   On failure (a null argument, a degenerate, crossed or non-convex quad, a source below
  //   2 pixels in a dimension: false without a message; a refused warp: logged) the destination
  //   record and bounds are left as they were. When the warp itself fails after the source had
  //   to be enlarged, the enlarged copy is not released.
  bool imageLibPerspectiveWarpRGBA8888(const vImage_Buffer* source, vImage_Buffer* destination,
                                       const QVILPerspectiveQuad* quad, int32_t mode, CGRect* bounds);
  // - imageLibAffineTransformMatrixFrom:sourceWidth:sourceHeight:toMatrix:
  //   The perspective fit of the quad to a width x height picture, written as an affine record:
  //   a = c00, b = -c10, c = -c01, d = c11, tx = c12, ty = c02 (the denominator row dropped; the
  //   pairing and the signs are the record's established layout). A degenerate or non-convex
  //   quad, or a width or height of 1, answers false and writes nothing; nothing is logged.
  bool imageLibAffineTransformMatrixFrom(const QVILPerspectiveQuad* quad, uint32_t sourceWidth, uint32_t sourceHeight,
                                         vImage_AffineTransform* matrix);
  // <<< rotation and warp operations

 private:
  QVILResize() = default;
};

#endif
