// QVILResize: rotation of RGBA images and of 8-bit planes.

#include "classes/warp_modes.h"
#include "platform/log.h"
#include "qvimage/QVILResize.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi.h"

namespace {

// The shifts that put the upper left corner of the turned picture's bounding box on (0, 0).
// The bound's status is not read; a bound that was not written leaves the shifts at zero.
struct Shifts {
  double x, y;
};

Shifts shiftsToOrigin(IppiRect sourceRegion, double angle) {
  double bound[2][2] = {{0, 0}, {0, 0}};
  ippiGetRotateBound(sourceRegion, bound, angle, 0, 0);
  return {-bound[0][0], -bound[0][1]};
}

// Mode 0 nearest, 1 linear, every other value cubic; all with smooth edges.
int rgbaInterpolationOf(int32_t mode) {
  const int filter = mode == 0 ? IPPI_INTER_NN : mode == 1 ? IPPI_INTER_LINEAR : IPPI_INTER_CUBIC;
  return filter | IPPI_SMOOTH_EDGE;
}

}  // namespace

bool QVILResize::imageLibRotateRGBA(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                                    float angle, uint64_t bitsPerChannel) {
  const IppiRect sourceRegion = qv::frame::wholeRegionOf(source);
  const IppiRect destinationRegion = qv::frame::wholeRegionOf(destination);
  const int interpolation = rgbaInterpolationOf(mode);
  const double degrees = angle;
  const Shifts shifts = shiftsToOrigin(sourceRegion, degrees);
  const IppiSize sourceSize = qv::frame::regionOf(source);
  const int sourceStep = qv::frame::stepOf(source), destinationStep = qv::frame::stepOf(destination);
  IppStatus status;
  if (bitsPerChannel == 16)
    status = ippiRotate_16u_C4R(qv::frame::pixelsOf<const Ipp16u>(source), sourceSize, sourceStep, sourceRegion,
                                qv::frame::pixelsOf<Ipp16u>(destination), destinationStep, destinationRegion, degrees,
                                shifts.x, shifts.y, interpolation);
  else if (bitsPerChannel == 8)
    status = ippiRotate_8u_C4R(qv::frame::pixelsOf<const Ipp8u>(source), sourceSize, sourceStep, sourceRegion,
                               qv::frame::pixelsOf<Ipp8u>(destination), destinationStep, destinationRegion, degrees,
                               shifts.x, shifts.y, interpolation);
  else
    return true;  // other depths are accepted and left alone
  if (status == ippStsNoErr) return true;
  // The rotation reports through the mirror's message; it has none of its own.
  qv::platform::logLine("QVImageLib mirror operation failed with error: %s", ippGetStatusString(status));
  return false;
}

bool QVILResize::imageLibRotateIntelPlanar8(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                                            float angle) {
  const IppiRect sourceRegion = qv::frame::wholeRegionOf(source);
  const IppiRect destinationRegion = qv::frame::wholeRegionOf(destination);
  const int interpolation = qv::frame::planarInterpolationOf(mode);
  const double degrees = angle;
  const Shifts shifts = shiftsToOrigin(sourceRegion, degrees);
  ippiRotate_8u_C1R(qv::frame::pixelsOf<const Ipp8u>(source), qv::frame::regionOf(source), qv::frame::stepOf(source),
                    sourceRegion, qv::frame::pixelsOf<Ipp8u>(destination), qv::frame::stepOf(destination),
                    destinationRegion, degrees, shifts.x, shifts.y, interpolation);
  return true;  // the status is not looked at
}
