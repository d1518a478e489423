// Image formats and the table of pixelel positions inside a map pixel.

#include "imagesynth/synthAssert.h"
#include "qvimage/imageSynth.h"

extern "C" {

uint32_t countPixelelsPerPixelForFormat(int32_t format) {
  switch (format) {
    case ImageFormatRGB:
      return 3;
    case ImageFormatRGBA:
      return 4;
    case ImageFormatGray:
      return 1;
    case ImageFormatGrayAlpha:
      return 2;
    default:
      return 0;
  }
}

// The mask pixelel, then the colours, the alpha pixelel if either side reads alpha, the map pixelels.
void prepareImageFormatIndices(ImageFormatIndices* indices, uint32_t colorCount, uint32_t mapCount,
                               int32_t targetHasAlpha, int32_t corpusHasAlpha, int32_t isMapUsed) {
  indices->colorCount = static_cast<uint8_t>(colorCount);
  indices->colorEnd = static_cast<uint8_t>(colorCount + 1);
  if (targetHasAlpha != 0 || corpusHasAlpha != 0) {
    indices->alphaIndex = static_cast<uint8_t>(colorCount + 1);
    indices->mapStart = static_cast<uint8_t>(colorCount + 2);
  } else {
    indices->mapStart = static_cast<uint8_t>(colorCount + 1);
  }
  indices->mapCount = static_cast<uint8_t>(isMapUsed != 0 ? mapCount : 0);
  indices->mapEnd = static_cast<uint8_t>(indices->mapStart + indices->mapCount);
  indices->total_bpp = indices->mapEnd;
  indices->targetHasAlpha = targetHasAlpha;
  indices->corpusHasAlpha = corpusHasAlpha;
  qv::synth::synthAssert(indices->total_bpp <= MAX_IMAGE_SYNTH_BPP, "indices->total_bpp <= MAX_IMAGE_SYNTH_BPP");
}

int32_t prepareImageFormatIndicesFromFormatType(ImageFormatIndices* indices, int32_t format) {
  switch (format) {
    case ImageFormatRGB:
      prepareImageFormatIndices(indices, 3, 0, 0, 0, 0);
      return SynthOK;
    case ImageFormatRGBA:
      prepareImageFormatIndices(indices, 3, 0, 1, 1, 0);
      return SynthOK;
    case ImageFormatGray:
      prepareImageFormatIndices(indices, 1, 0, 0, 0, 0);
      return SynthOK;
    case ImageFormatGrayAlpha:
      prepareImageFormatIndices(indices, 1, 0, 1, 1, 0);
      return SynthOK;
    default:
      return SynthBadFormat;
  }
}

void prepareDefaultFormatIndices(ImageFormatIndices* indices) { prepareImageFormatIndices(indices, 3, 0, 1, 1, 0); }

}  // extern "C"
