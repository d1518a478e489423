#ifndef QVIMAGE_QVILRESYNTHESIZE_H
#define QVIMAGE_QVILRESYNTHESIZE_H

#include <cstdint>

#include "imageSynth.h"

// Fills the masked pixels of an RGBA image with texture synthesised from its other pixels.
class QV_API QVILResynthesize {
 public:
  // + imageSynth:mask:imageFormat:parameters:callback:contextInfo:cancelFlag:
  //   Always synthesises four-byte pixels (ImageFormatRGBA), whatever imageFormat says. Returns
  //   the result code of imageSynth; a non-zero code, or a cancelled run, leaves the image as it
  //   was. callback (an ImageSynthProgressCallback) and cancelFlag must be valid.
  static int32_t imageSynth(_ImageBuffer* image, _ImageBuffer* mask, int32_t imageFormat,
                            ImageSynthParametersStruct* parameters, void* callback, void* contextInfo,
                            int32_t* cancelFlag);

  QVILResynthesize() = delete;
};

#endif
