// QVILResynthesize: the public face of texture synthesis, for four-byte pixels only.

#include "qvimage/QVILResynthesize.h"

int32_t QVILResynthesize::imageSynth(_ImageBuffer* image, _ImageBuffer* mask, int32_t /*imageFormat*/,
                                     ImageSynthParametersStruct* parameters, void* callback, void* contextInfo,
                                     int32_t* cancelFlag) {
  return ::imageSynth(image, mask, ImageFormatRGBA, parameters, callback, contextInfo, cancelFlag);
}
