// QVILConversion: depth conversion and pixel arithmetic. The two conversions report a failed
// primitive in the log and answer false; every other operation drops the primitive's status and
// answers true.

#include <cstdint>

#include "classes/buffer_region.h"
#include "platform/log.h"
#include "platform/vimage.h"
#include "qvimage/QVILConversion.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi.h"

namespace {

// Exchanges the first and third channels of every pixel, in place. The result is not looked at.
void swapFirstAndThirdChannels(const vImage_Buffer* buffer) {
  static const uint8_t kMap[4] = {2, 1, 0, 3};
  qv::platform::permuteChannelsARGB8888(buffer, buffer, kMap, 0);
}

const Ipp8u* constPixels(const vImage_Buffer* buffer) { return qv::frame::pixelsOf<const Ipp8u>(buffer); }

Ipp8u* pixels(const vImage_Buffer* buffer) { return qv::frame::pixelsOf<Ipp8u>(buffer); }

}  // namespace

bool QVILConversion::imageLibConvert8888Uto16U(const vImage_Buffer* src, const vImage_Buffer* dest) {
  const IppStatus status =
      ippiScale_8u16u_C4R(constPixels(src), qv::frame::stepOf(src), qv::frame::pixelsOf<Ipp16u>(dest),
                          qv::frame::stepOf(dest), qv::frame::regionOf(src));
  if (status == ippStsNoErr) return true;
  qv::platform::logLine("Image conversion from 8 bits to 16 bits error: %s", ippGetStatusString(status));
  return false;
}

bool QVILConversion::imageLibConvert16Uto8888U(const vImage_Buffer* src, const vImage_Buffer* dest) {
  const IppStatus status =
      ippiScale_16u8u_C4R(qv::frame::pixelsOf<const Ipp16u>(src), qv::frame::stepOf(src), pixels(dest),
                          qv::frame::stepOf(dest), qv::frame::regionOf(src), ippAlgHintNone);
  if (status == ippStsNoErr) return true;
  qv::platform::logLine("Image conversion from 16 bits to 8 bits error: %s", ippGetStatusString(status));
  return false;
}

// The source is permuted although it is const, and stays permuted even when the conversion fails.
bool QVILConversion::imageLibConvertBGRA8toRGBA16(const vImage_Buffer* src, const vImage_Buffer* dest) {
  swapFirstAndThirdChannels(src);
  return imageLibConvert8888Uto16U(src, dest);
}

bool QVILConversion::imageLibConvertRGBA16toBGRA8(const vImage_Buffer* src, const vImage_Buffer* dest) {
  if (!imageLibConvert16Uto8888U(src, dest)) return false;
  swapFirstAndThirdChannels(dest);
  return true;
}

bool QVILConversion::imageLibInvertBuffer(vImage_Buffer* buffer) {
  const int step = qv::frame::stepOf(buffer);
  ippiAbsDiffC_8u_C1R(pixels(buffer), step, pixels(buffer), step, qv::frame::regionOf(buffer), 255);
  return true;
}

bool QVILConversion::imageLibThresholdGreaterPlanar(vImage_Buffer* buffer, uint8_t threshold, uint8_t newValue) {
  ippiThreshold_Val_8u_C1IR(pixels(buffer), qv::frame::stepOf(buffer), qv::frame::regionOf(buffer), threshold, newValue,
                            ippCmpGreater);
  return true;
}

bool QVILConversion::imageLibMultiplyAndScaleRGBA8888(const vImage_Buffer* src, const vImage_Buffer* dest) {
  ippiMulScale_8u_C4IR(constPixels(src), qv::frame::stepOf(src), pixels(dest), qv::frame::stepOf(dest),
                       qv::frame::regionOf(dest));
  return true;
}

bool QVILConversion::imageLibMultiplyAndScalePlanar8(const vImage_Buffer* src, const vImage_Buffer* dest) {
  ippiMulScale_8u_C1IR(constPixels(src), qv::frame::stepOf(src), pixels(dest), qv::frame::stepOf(dest),
                       qv::frame::regionOf(dest));
  return true;
}

bool QVILConversion::imageLibMultiplyRGBA8888(vImage_Buffer* buffer, const uint8_t* value) {
  ippiMulCScale_8u_C4IR(value, pixels(buffer), qv::frame::stepOf(buffer), qv::frame::regionOf(buffer));
  return true;
}

bool QVILConversion::imageLibMultiplyPlanar8(vImage_Buffer* buffer, uint8_t value) {
  ippiMulCScale_8u_C1IR(value, pixels(buffer), qv::frame::stepOf(buffer), qv::frame::regionOf(buffer));
  return true;
}

bool QVILConversion::imageLibGetMinimumValuesFromRGBA888(const vImage_Buffer* buffer, uint8_t* minValues) {
  ippiMin_8u_C4R(constPixels(buffer), qv::frame::stepOf(buffer), qv::frame::regionOf(buffer), minValues);
  return true;
}

bool QVILConversion::imageLibGetMinimumValueFromPlanar8(vImage_Buffer* buffer, uint8_t* minValue) {
  ippiMin_8u_C1R(constPixels(buffer), qv::frame::stepOf(buffer), qv::frame::regionOf(buffer), minValue);
  return true;
}

bool QVILConversion::imageLibGetMaximumValueFromPlanar8(vImage_Buffer* buffer, uint8_t* maxValue) {
  ippiMax_8u_C1R(constPixels(buffer), qv::frame::stepOf(buffer), qv::frame::regionOf(buffer), maxValue);
  return true;
}

bool QVILConversion::imageLibAbsDiffBufferOne(vImage_Buffer* bufferOne, vImage_Buffer* bufferTwo, vImage_Buffer* dest) {
  ippiAbsDiff_8u_C1R(constPixels(bufferOne), qv::frame::stepOf(bufferOne), constPixels(bufferTwo),
                     qv::frame::stepOf(bufferTwo), pixels(dest), qv::frame::stepOf(dest),
                     qv::frame::regionOf(bufferOne));
  return true;
}

bool QVILConversion::imageLibMaxEveryBuffer(vImage_Buffer* src, vImage_Buffer* dest) {
  ippiMaxEvery_8u_C1IR(constPixels(src), qv::frame::stepOf(src), pixels(dest), qv::frame::stepOf(dest),
                       qv::frame::regionOf(src));
  return true;
}
