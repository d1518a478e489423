// QVILResize: the affine warp of 8-bit planes, the perspective warp of RGBA8888 images and the
// affine record of a quad's fit.

#include <cmath>
#include <cstdlib>

#include "classes/warp_modes.h"
#include "platform/log.h"
#include "qvimage/QVILLibraryController.h"
#include "qvimage/QVILResize.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi.h"

namespace {

// The quad's points around its outline: top left, top right, bottom right, bottom left.
void outlineOf(const QVILPerspectiveQuad& quad, double outline[4][2]) {
  const CGPoint points[4] = {quad.topLeft, quad.topRight, quad.bottomRight, quad.bottomLeft};
  for (int i = 0; i < 4; ++i) {
    outline[i][0] = points[i].x;
    outline[i][1] = points[i].y;
  }
}

// A double truncated toward zero to 32 bits, or to 64 bits unsigned (0 below 1), as the
// processor's conversions give them, without undefined behaviour out of range.
int truncatedInt(double value) {
  if (!(value > -2147483649.0 && value < 2147483648.0)) return INT32_MIN;
  return static_cast<int>(value);
}

uint64_t truncatedUnsigned(double value) {
  if (!(value >= 1)) return 0;
  if (value >= 18446744073709551616.0) return UINT64_MAX;
  return static_cast<uint64_t>(value);
}

// How the working source is laid out along one axis: a quad reaching below 0 moves every
// coordinate up by its least value, and the source is placed that far in a larger picture.
struct Axis {
  double shift;  // the least coordinate when negative, else 0
  int origin;    // where the source starts in the working picture
  int working;   // the working picture's length
};

Axis axisFor(double outline[4][2], int coordinate, uint64_t sourceLength) {
  double least = outline[0][coordinate];
  for (int i = 1; i < 4; ++i) least = std::fmin(least, outline[i][coordinate]);
  if (!(least < 0)) return {0, 0, static_cast<int>(static_cast<uint32_t>(sourceLength))};
  for (int i = 0; i < 4; ++i) outline[i][coordinate] -= least;
  return {least, truncatedInt(0 - least), truncatedInt(static_cast<double>(sourceLength) - least)};
}

struct Box {
  double leastX, leastY, greatestX, greatestY;
};

Box boxOf(const double quad[4][2]) {
  Box box{quad[0][0], quad[0][1], quad[0][0], quad[0][1]};
  for (int i = 1; i < 4; ++i) {
    box.leastX = std::fmin(box.leastX, quad[i][0]);
    box.leastY = std::fmin(box.leastY, quad[i][1]);
    box.greatestX = std::fmax(box.greatestX, quad[i][0]);
    box.greatestY = std::fmax(box.greatestY, quad[i][1]);
  }
  return box;
}

// The pixels the warp reads: the caller's source, or the source copied into a larger picture
// (plain heap, left uninitialised around the copy) when the quad reached below 0.
struct WorkingSource {
  Ipp8u* pixels;
  int step;
  IppiSize size;
  Ipp8u* enlarged;  // the block of the larger picture, or null
};

bool makeWorkingSource(const vImage_Buffer* source, const Axis& x, const Axis& y, WorkingSource* working) {
  const IppiSize sourceSize = qv::frame::regionOf(source);
  working->size = {x.working, y.working};
  if (x.working == sourceSize.width && y.working == sourceSize.height) {
    *working = {qv::frame::pixelsOf(source), qv::frame::stepOf(source), sourceSize, nullptr};
    return true;
  }
  working->step = x.working * 4;
  working->enlarged = static_cast<Ipp8u*>(std::malloc(static_cast<size_t>(working->step) * y.working));
  if (working->enlarged == nullptr) return false;
  working->pixels = working->enlarged;
  const size_t offset = static_cast<size_t>(std::abs(truncatedInt(y.shift))) * working->step +
                        static_cast<size_t>(std::abs(truncatedInt(x.shift))) * 4;
  ippiCopy_8u_C4R(qv::frame::pixelsOf(source), qv::frame::stepOf(source), working->enlarged + offset, working->step,
                  sourceSize);
  return true;
}

// Mode 0 gives the smooth-edge flag alone, which the warp refuses: there is no nearest mode.
int perspectiveInterpolationOf(int32_t mode) {
  static const int kWords[3] = {IPPI_SMOOTH_EDGE, IPPI_INTER_LINEAR | IPPI_SMOOTH_EDGE,
                                IPPI_INTER_CUBIC | IPPI_SMOOTH_EDGE};
  return kWords[mode];
}

}  // namespace

bool QVILResize::imageLibAffineWarpIntelPlanar8(const vImage_Buffer* source, const vImage_Buffer* destination,
                                                int32_t mode, vImage_AffineTransform transform) {
  const double coeffs[2][3] = {{transform.a, transform.c, transform.tx}, {transform.b, transform.d, transform.ty}};
  ippiWarpAffine_8u_C1R(qv::frame::pixelsOf<const Ipp8u>(source), qv::frame::regionOf(source),
                        qv::frame::stepOf(source), qv::frame::wholeRegionOf(source),
                        qv::frame::pixelsOf<Ipp8u>(destination), qv::frame::stepOf(destination),
                        qv::frame::wholeRegionOf(destination), coeffs, qv::frame::planarInterpolationOf(mode));
  return true;  // the status is not looked at
}

bool QVILResize::imageLibPerspectiveWarpRGBA8888(const vImage_Buffer* source, vImage_Buffer* destination,
                                                 const QVILPerspectiveQuad* quad, int32_t mode, CGRect* bounds) {
  if (source == nullptr || destination == nullptr || quad == nullptr || bounds == nullptr) return false;
  if (static_cast<uint32_t>(mode) >= 3) {
    qv::platform::logLine("ERROR: Unsupported interpolation mode: %d", mode);
    return false;
  }
  const int interpolation = perspectiveInterpolationOf(mode);
  double outline[4][2];
  outlineOf(*quad, outline);
  const Axis x = axisFor(outline, 0, source->width);
  const Axis y = axisFor(outline, 1, source->height);
  const IppiSize sourceSize = qv::frame::regionOf(source);
  const IppiRect sourceRegion{x.origin, y.origin, sourceSize.width, sourceSize.height};
  double coeffs[3][3], mapped[4][2];
  if (ippiGetPerspectiveTransform(sourceRegion, outline, coeffs) != ippStsNoErr) return false;
  if (ippiGetPerspectiveQuad(sourceRegion, mapped, coeffs) != ippStsNoErr) return false;
  const Box box = boxOf(mapped);

  WorkingSource working{};
  if (!makeWorkingSource(source, x, y, &working)) return false;
  // The output is in quad coordinates from (0, 0) to the box's far corner.
  const uint64_t outputWidth = truncatedUnsigned(std::fmax(box.greatestX, box.leastX));
  const uint64_t outputHeight = truncatedUnsigned(std::fmax(box.greatestY, box.leastY));
  const int outputStep = static_cast<int>(outputWidth * 4);
  Ipp8u* output = static_cast<Ipp8u*>(std::calloc(outputWidth * 4 * outputHeight, 1));
  if (output == nullptr) {
    std::free(working.enlarged);
    return false;
  }
  const int width = truncatedInt(std::fabs(box.greatestX - box.leastX));
  const int height = truncatedInt(std::fabs(box.greatestY - box.leastY));
  const IppiRect outputRegion{truncatedInt(box.leastX), truncatedInt(box.leastY), width, height};
  const IppStatus status = ippiWarpPerspective_8u_C4R(working.pixels, working.size, working.step, sourceRegion, output,
                                                      outputStep, outputRegion, coeffs, interpolation);
  if (status != ippStsNoErr) {
    std::free(output);
    qv::platform::logLine("warp perspective error: %s", ippGetStatusString(status));
    return false;  // the enlarged source, if one was made, is not released on this path
  }

  const uint64_t rowBytes =
      QVILLibraryController::sharedInstance()->allignRowBytesFunction()(static_cast<uint64_t>(width) * 4);
  const size_t blockBytes = static_cast<size_t>(height) * rowBytes;
  void* block = working.enlarged != nullptr ? std::realloc(working.enlarged, blockBytes) : std::malloc(blockBytes);
  if (block == nullptr) {
    std::free(working.enlarged);
    std::free(output);
    return false;
  }
  destination->width = static_cast<size_t>(width);
  destination->height = static_cast<size_t>(height);
  destination->rowBytes = rowBytes;
  destination->data = block;  // the caller's previous pointer is not freed: the caller owns both
  ippiCopy_8u_C4R(output + static_cast<ptrdiff_t>(outputRegion.y) * outputStep + outputRegion.x * 4, outputStep,
                  static_cast<Ipp8u*>(block), qv::frame::stepOf(destination), {width, height});
  std::free(output);
  *bounds = {{x.shift + box.leastX, y.shift + box.leastY}, {static_cast<double>(width), static_cast<double>(height)}};
  return true;
}

bool QVILResize::imageLibAffineTransformMatrixFrom(const QVILPerspectiveQuad* quad, uint32_t sourceWidth,
                                                   uint32_t sourceHeight, vImage_AffineTransform* matrix) {
  double outline[4][2], c[3][3];
  outlineOf(*quad, outline);
  const IppiRect region{0, 0, static_cast<int>(sourceWidth), static_cast<int>(sourceHeight)};
  if (ippiGetPerspectiveTransform(region, outline, c) != ippStsNoErr) return false;
  // The record's established pairing: tx from the y row, ty from the x row, off-diagonals negated.
  *matrix = {static_cast<float>(c[0][0]), static_cast<float>(-c[1][0]), static_cast<float>(-c[0][1]),
             static_cast<float>(c[1][1]), static_cast<float>(c[1][2]),  static_cast<float>(c[0][2])};
  return true;
}
