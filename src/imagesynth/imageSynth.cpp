// The entry of texture synthesis: builds the engine's two maps from the caller's interleaved
// bytes, runs the engine and writes the result back.

#include "imagesynth/mapOps.h"

namespace {

// The parameters of a call that passes none; rewritten with the same values by every such call.
ImageSynthParametersStruct defaultParameters;

// Byte k of pixel (x, y) of an n-pixelel image; the offset is computed in 32 bits.
uint32_t imageOffset(const _ImageBuffer* image, uint32_t x, uint32_t y, uint32_t n, uint32_t k) {
  return y * static_cast<uint32_t>(image->rowBytes) + x * n + k;
}

// A map of n + 1 pixelels per pixel: pixelel 0 left at 0, the image bytes after it.
void newImageMap(const _ImageBuffer* image, Map* map, uint32_t n) {
  new_pixmap(map, image->width, image->height, n + 1);
  for (uint32_t y = 0; y < image->height; ++y) {
    for (uint32_t x = 0; x < image->width; ++x) {
      unsigned char* pixel = qv::synth::elementAt(map, static_cast<int32_t>(x), static_cast<int32_t>(y));
      for (uint32_t k = 0; k < n; ++k) pixel[k + 1] = image->data[imageOffset(image, x, y, n, k)];
    }
  }
}

// A one-pixelel map of the mask, read with the mask's own row length.
void newMaskMap(const _ImageBuffer* mask, Map* map) {
  new_bytemap(map, mask->width, mask->height);
  for (uint32_t y = 0; y < mask->height; ++y) {
    for (uint32_t x = 0; x < mask->width; ++x) {
      *qv::synth::elementAt(map, static_cast<int32_t>(x), static_cast<int32_t>(y)) =
          mask->data[imageOffset(mask, x, y, 1, 0)];
    }
  }
}

// Pixelels 1 to n of every target pixel go back to the image, masked or not.
void writeBack(const Map* target, _ImageBuffer* image, uint32_t n) {
  for (uint32_t y = 0; y < image->height; ++y) {
    for (uint32_t x = 0; x < image->width; ++x) {
      const unsigned char* pixel = qv::synth::elementAt(target, static_cast<int32_t>(x), static_cast<int32_t>(y));
      for (uint32_t k = 0; k < n; ++k) image->data[imageOffset(image, x, y, n, k)] = pixel[k + 1];
    }
  }
}

}  // namespace

extern "C" {

// target: the image with the caller's mask in pixelel 0; corpus: the same image with pixelel 0
// at 255 exactly where the mask is 0.
void adaptSimpleAPI(const _ImageBuffer* image, const _ImageBuffer* mask, Map* target, Map* corpus, uint32_t pixelels) {
  Map temporary;
  newImageMap(image, target, pixelels);
  newMaskMap(mask, &temporary);
  interleave_mask(target, &temporary);
  free_map(&temporary);
  newImageMap(image, corpus, pixelels);
  newMaskMap(mask, &temporary);
  invert_bytemap(&temporary);
  interleave_mask(corpus, &temporary);
  free_map(&temporary);
}

// The image and the mask as two separate maps, nothing interleaved.
void adaptImageAndMask(const _ImageBuffer* image, const _ImageBuffer* mask, Map* map, Map* maskMap, uint32_t pixelels) {
  newImageMap(image, map, pixelels);
  newMaskMap(mask, maskMap);
}

int32_t imageSynth(_ImageBuffer* image, _ImageBuffer* mask, int32_t imageFormat, ImageSynthParametersStruct* parameters,
                   void* callback, void* contextInfo, int32_t* cancelFlag) {
  if (image->width != mask->width || image->height != mask->height) return SynthSizeMismatch;
  if (parameters == nullptr) {
    setDefaultParams(&defaultParameters);
    parameters = &defaultParameters;
  }
  ImageFormatIndices indices;
  const int32_t formatResult = prepareImageFormatIndicesFromFormatType(&indices, imageFormat);
  if (formatResult != SynthOK) return formatResult;
  const uint32_t n = countPixelelsPerPixelForFormat(imageFormat);
  Map target;
  Map corpus;
  adaptSimpleAPI(image, mask, &target, &corpus, n);
  const int32_t result = engine(&indices, &target, &corpus, callback, contextInfo, cancelFlag, *parameters);
  if (result == SynthOK && *cancelFlag == 0) writeBack(&target, image, n);
  free_map(&target);
  free_map(&corpus);
  return result;
}

}  // extern "C"
