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

// The interpolation mode of the scale operations: a signed 32-bit value. Values outside 0..10
// scale as nearest, silently.
enum QVILResizeInterpolation : int32_t {
  QVILResizeNearestNeighbor = 0,
  QVILResizeLinear = 1,
  QVILResizeCubic = 2,
  QVILResizeSuper = 3,  // area average; on RGBA and Planar8 it reduces, and leaves an enlargement alone
  QVILResizeLanczos = 4,
  QVILResizeLanczos5 = 5,       // the library's scaler, high quality: 5 lobes, stretched on reduction
  QVILResizeLanczos3 = 6,       // the library's scaler: 3 lobes, stretched on reduction
  QVILResizeQualityNone = 7,    // drawing: nearest
  QVILResizeQualityLow = 8,     // drawing: linear
  QVILResizeQualityMedium = 9,  // drawing: linear stretched on reduction
  QVILResizeQualityHigh = 10,   // drawing: 3-lobe Lanczos stretched on reduction
};

// Scaling, mirroring, rotation and warps of whole images. Each operation takes its region from
// one buffer (named in its comment); the other buffer must be at least as large.
class QV_API QVILResize {
 public:
  // + sharedInstance
  static QVILResize* sharedInstance();

  // >>> scale operations
  // --- engines with a ResizeSpec record (sizes from source and destination) ---
  // Each builds a ResizeSpec for the two sizes, then resizes the whole destination, on the
  // calling thread (option mode 0, limit 1, or fewer than two processors) or in strips: one per
  // processor of the option word, the remainder rows to the last strip. A failed size query or
  // init is logged and answers false; a failed scratch query or allocation on the calling thread
  // answers false without a line; a failed scratch allocation for strips answers true with the
  // destination untouched; the status of the resize itself is not looked at.
  // - imageLibScaleLinearRGBA:destination:multiThreadOptions:bitsPerChannel:
  //   16 bits calls the 16-bit engine, 8 bits the 8-bit one; other depths answer false.
  bool imageLibScaleLinearRGBA(const vImage_Buffer* source, const vImage_Buffer* destination,
                               uint32_t multiThreadOptions, uint64_t bitsPerChannel);
  // - imageLibScaleLinearRGBA8888:destination:multiThreadOptions:
  //   Linear; a source under 2 x 2 logs "Scale initialization error: <status text> srcSize:
  //   {w, h} destSize: {w, h}". The calling-thread path keeps its scratch block allocated.
  bool imageLibScaleLinearRGBA8888(const vImage_Buffer* source, const vImage_Buffer* destination,
                                   uint32_t multiThreadOptions);
  // - imageLibScaleLinearRGBA16:destination:multiThreadOptions:
  bool imageLibScaleLinearRGBA16(const vImage_Buffer* source, const vImage_Buffer* destination,
                                 uint32_t multiThreadOptions);
  // - imageLibScaleLanczosRGBA:destination:multiThreadOptions:bitsPerChannel:
  //   16 bits calls the 16-bit engine, 8 bits the 8-bit one; other depths answer false.
  bool imageLibScaleLanczosRGBA(const vImage_Buffer* source, const vImage_Buffer* destination,
                                uint32_t multiThreadOptions, uint64_t bitsPerChannel);
  // - imageLibScaleLanczosRGBA8888:destination:multiThreadOptions:
  //   Lanczos of 3 lobes; a source under 4 x 4 logs "Scale get size error: ...", one under
  //   6 x 6 "Scale initialization error: ...", each with the two sizes.
  bool imageLibScaleLanczosRGBA8888(const vImage_Buffer* source, const vImage_Buffer* destination,
                                    uint32_t multiThreadOptions);
  // - imageLibScaleLanczosRGBA16:destination:multiThreadOptions:
  bool imageLibScaleLanczosRGBA16(const vImage_Buffer* source, const vImage_Buffer* destination,
                                  uint32_t multiThreadOptions);
  // --- the general operation and the forms that lead to it (sizes from both buffers) ---
  // - imageLibScaleRGBA:destination:interpolationMode:multiThreadOptions:bitsPerChannel:
  //   The whole source into the whole destination. Decided in this order: equal sizes copy
  //   (QVILConversion imageLibCopyRGBA with the option word and depth, its answer dropped) in
  //   every mode; modes 7 to 10 draw with the qualities none, low, medium and high, logging
  //   "Apple resize" before and "Apple resize end" after; modes 5 and 6 run the library's
  //   edge-extending Lanczos scaler (5 and 3 lobes); mode 1 the linear engine, and if it answers
  //   false the square-pixel linear filter; mode 4 the Lanczos engine, whose answer is returned;
  //   mode 2 the square-pixel cubic, mode 3 super (reductions only), any other mode nearest.
  //   Only the engines of modes 1 and 4 take strips. The square-pixel front logs a failed size
  //   query or resize as "Scale initialization error: <status text> srcSize: {w, h} destSize:
  //   {w, h}" and still answers true. Depths other than 8 and 16 do nothing and answer true,
  //   except in mode 4 (false).
  bool imageLibScaleRGBA(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                         uint32_t multiThreadOptions, uint64_t bitsPerChannel);
  // - imageLibScaleRGBA8888:destination:interpolationMode:
  //   The next form with option word 0.
  bool imageLibScaleRGBA8888(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode);
  // - imageLibScaleRGBA8888:destination:interpolationMode:multiThreadOptions:
  //   The general operation with 8 bits; the option word is thrown away and 0 passed.
  bool imageLibScaleRGBA8888(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                             uint32_t multiThreadOptions);
  // - imageLibScaleRGBA16:destination:interpolationMode:
  //   The next form with option word 0.
  bool imageLibScaleRGBA16(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode);
  // - imageLibScaleRGBA16:destination:interpolationMode:multiThreadOptions:
  //   The general operation with 16 bits; the option word is thrown away and 0 passed.
  bool imageLibScaleRGBA16(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                           uint32_t multiThreadOptions);
  // - imageLibScaleRGBA8888:destination:interpolationMode:sourceROI:destinationROI:bufferCallback:owner:
  //   Exactly imageLibScaleRGBA8888:destination:interpolationMode: with the first three
  //   arguments: the regions are never read, the callback never sent, the owner never touched.
  bool imageLibScaleRGBA8888(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                             CGRect sourceROI, CGRect destinationROI, const char* bufferCallback, void* owner);
  // - imageLibScalePlanar8:destination:interpolationMode:
  //   One 8-bit channel, the whole source into the whole destination, on the calling thread.
  //   Modes 5 and 6 use the library's edge-extending Lanczos scaler (5 and 3 lobes); modes 0 to 4
  //   the square-pixel resize with nearest, linear, cubic, super and Lanczos; every other mode
  //   nearest. Equal sizes still filter. Failures are not reported: the answer is always true.
  bool imageLibScalePlanar8(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode);
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
