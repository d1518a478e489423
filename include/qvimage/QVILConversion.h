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
  // These answer true whatever the primitive said.
  // - imageLibCopyPlanar8:dest:
  //   One channel; region from dest.
  bool imageLibCopyPlanar8(const vImage_Buffer* src, const vImage_Buffer* dest);
  // - imageLibCopyPlanar8ToRGBA8888:dest:
  //   Each pixel's value to all four channels, alpha included; region from dest.
  bool imageLibCopyPlanar8ToRGBA8888(const vImage_Buffer* src, const vImage_Buffer* dest);
  // - imageLibCopyRGBA8888SelectedChannel:toDest:
  //   One channel of four: the one at which src->data points (byte 0 to 3 of the first pixel).
  //   Region from src.
  bool imageLibCopyRGBA8888SelectedChannel(vImage_Buffer* src, vImage_Buffer* dest);
  // - imageLibSetPlanar8:toValue:
  bool imageLibSetPlanar8(vImage_Buffer* buffer, uint8_t value);
  // - imageLibSetRGBA8888:toValue:
  //   value holds one byte a channel.
  bool imageLibSetRGBA8888(vImage_Buffer* buffer, const uint8_t* value);
  // - imageLibConvertARGBtoBGRA:
  //   Reverses the four channels of each pixel in place, const buffer included.
  bool imageLibConvertARGBtoBGRA(const vImage_Buffer* buffer);
  // - imageLibConvertARGBtoBGRA8888:
  //   The same reversal in place.
  bool imageLibConvertARGBtoBGRA8888(const vImage_Buffer* buffer);
  // - imageLibSwapChannels:destination:order:
  //   Ignores order and always asks for the order 3, 2, 1, 0, which the three-channel primitive
  //   refuses: nothing is written, and the answer is true. Region from src.
  bool imageLibSwapChannels(const vImage_Buffer* src, const vImage_Buffer* destination, const int32_t* order);
  // <<< copy, fill and channel operations

  // >>> depth conversion and arithmetic operations
  // - imageLibConvert8888Uto16U:dest:
  //   Region from src. Each channel s becomes s * 257. A failure is logged; answers false.
  bool imageLibConvert8888Uto16U(const vImage_Buffer* src, const vImage_Buffer* dest);
  // - imageLibConvert16Uto8888U:dest:
  //   Region from src. The fast division by 257. A failure is logged; answers false.
  bool imageLibConvert16Uto8888U(const vImage_Buffer* src, const vImage_Buffer* dest);
  // - imageLibConvertBGRA8toRGBA16:dest:
  //   Exchanges channels 0 and 2 of src in place and leaves them so, then converts to 16 bits.
  bool imageLibConvertBGRA8toRGBA16(const vImage_Buffer* src, const vImage_Buffer* dest);
  // - imageLibConvertRGBA16toBGRA8:dest:
  //   Converts to 8 bits, then exchanges channels 0 and 2 of dest if the conversion succeeded.
  bool imageLibConvertRGBA16toBGRA8(const vImage_Buffer* src, const vImage_Buffer* dest);
  // - imageLibInvertBuffer:
  //   Planar8: each byte of width bytes a row becomes 255 - byte. Always true.
  bool imageLibInvertBuffer(vImage_Buffer* buffer);
  // - imageLibThresholdGreaterPlanar:threshold:newValue:
  //   Bytes strictly greater than threshold become newValue. Always true.
  bool imageLibThresholdGreaterPlanar(vImage_Buffer* buffer, uint8_t threshold, uint8_t newValue);
  // - imageLibMultiplyAndScaleRGBA8888:dest:
  //   Region from dest. dest = src * dest / 255 (scaled product), all four channels. Always true.
  bool imageLibMultiplyAndScaleRGBA8888(const vImage_Buffer* src, const vImage_Buffer* dest);
  // - imageLibMultiplyAndScalePlanar8:dest:
  //   Region from dest. dest = src * dest / 255 (scaled product). Always true.
  bool imageLibMultiplyAndScalePlanar8(const vImage_Buffer* src, const vImage_Buffer* dest);
  // - imageLibMultiplyRGBA8888:byValue:
  //   Channel c of each pixel times value[c] / 255 (scaled product). Always true.
  bool imageLibMultiplyRGBA8888(vImage_Buffer* buffer, const uint8_t* value);
  // - imageLibMultiplyPlanar8:byValue:
  //   Each byte times value / 255 (scaled product). Always true.
  bool imageLibMultiplyPlanar8(vImage_Buffer* buffer, uint8_t value);
  // - imageLibGetMinimumValuesFromRGBA888:minValues:
  //   The smallest value of each of the four channels, into minValues[0..3]. Always true.
  bool imageLibGetMinimumValuesFromRGBA888(const vImage_Buffer* buffer, uint8_t* minValues);
  // - imageLibGetMinimumValueFromPlanar8:minValue:
  bool imageLibGetMinimumValueFromPlanar8(vImage_Buffer* buffer, uint8_t* minValue);
  // - imageLibGetMaximumValueFromPlanar8:maxValue:
  bool imageLibGetMaximumValueFromPlanar8(vImage_Buffer* buffer, uint8_t* maxValue);
  // - imageLibAbsDiffBufferOne:bufferTwo:dest:
  //   Region from bufferOne. dest = |bufferOne - bufferTwo|, Planar8. Always true.
  bool imageLibAbsDiffBufferOne(vImage_Buffer* bufferOne, vImage_Buffer* bufferTwo, vImage_Buffer* dest);
  // - imageLibMaxEveryBuffer:toDest:
  //   Region from src. dest = max(src, dest), Planar8. Always true.
  bool imageLibMaxEveryBuffer(vImage_Buffer* src, vImage_Buffer* dest);
  // <<< depth conversion and arithmetic operations

  // >>> composition, noise and dithering operations
  // - imageLibCompositeOverPremultipliedRGBASource:toDest:
  //   Premultiplied "over" of source onto dest, in place in dest (region from source). Status
  //   dropped; answers true.
  bool imageLibCompositeOverPremultipliedRGBASource(vImage_Buffer* source, vImage_Buffer* dest);
  // - imageLibAddRandomGaussian:mean:stDev:pSeed:
  //   8-bit RGBA: Gaussian noise on channels 0-2, in place. mean and stDev are cut to their low
  //   8 bits; the seed is used by value and the advanced seed is not handed back. Answers true.
  bool imageLibAddRandomGaussian(const vImage_Buffer* buffer, int32_t mean, int32_t stDev, uint32_t pSeed);
  // - imageLibAddRandomGaussianInteger:mean:stDev:pSeed:
  //   The same on 16-bit RGBA, with mean and stDev cut to their low 16 bits.
  bool imageLibAddRandomGaussianInteger(const vImage_Buffer* buffer, int32_t mean, int32_t stDev, uint32_t pSeed);
  // - imageLibAddRandomGaussianFloat:mean:stDev:pSeed:
  //   The same on float RGBA, with mean and stDev converted to float; no clamp.
  bool imageLibAddRandomGaussianFloat(const vImage_Buffer* buffer, int32_t mean, int32_t stDev, uint32_t pSeed);
  // - imageLibReduceBits:noise:levels:reduceType:
  //   8-bit RGBA, all four channels: reduces to `levels` levels in place. reduceType 0 none,
  //   1 Stucki, 2 Floyd-Steinberg, 3 Jarvis-Judice-Ninke, 4 Bayer; a reduceType above 4 (read
  //   as unsigned) changes nothing. Answers true.
  bool imageLibReduceBits(const vImage_Buffer* buffer, int32_t noise, int32_t levels, int32_t reduceType);
  // <<< composition, noise and dithering operations

 private:
  QVILConversion() = default;
};

#endif
