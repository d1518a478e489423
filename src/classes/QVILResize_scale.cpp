// QVILResize: the general scale operation and the forms that lead to it. Equal sizes copy, in
// every mode; modes 7 to 10 draw with the library's drawing qualities, modes 5 and 6 use its
// edge-extending Lanczos scaler, mode 1 the linear engine (falling back to the square-pixel
// front), mode 4 the Lanczos engine, and every other mode the square-pixel front.

#include <cstdio>

#include "classes/scale_front.h"
#include "platform/assertion.h"
#include "platform/log.h"
#include "platform/scaler.h"
#include "qvimage/QVILConversion.h"
#include "qvimage/QVILResize.h"
#include "qvimage/QVILSharedInternal.h"
#include "qvimage/ippi.h"

namespace {

bool sameSize(const vImage_Buffer* a, const vImage_Buffer* b) {
  return static_cast<uint32_t>(a->width) == static_cast<uint32_t>(b->width) &&
         static_cast<uint32_t>(a->height) == static_cast<uint32_t>(b->height);
}

// Drawing quality by mode: 7 none, 8 low, 9 medium, and everything past it high.
int drawingQualityOf(int32_t mode) {
  static const int kQualities[] = {1, 2, 4};
  return mode >= 7 && mode <= 9 ? kQualities[mode - 7] : 3;
}

void drawScaled(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode, uint64_t bits) {
  qv::platform::logLine("Apple resize");
  // A depth the bitmap context refuses draws nothing; the operation carries on all the same.
  qv::platform::drawScaledImage(source, destination, bits, drawingQualityOf(mode));
  qv::platform::logLine("Apple resize end");
}

void scaleWithLibraryScaler(const QVILResize* self, const vImage_Buffer* source, const vImage_Buffer* destination,
                            int32_t mode, uint64_t bits) {
  const uint32_t flags = mode == QVILResizeLanczos5 ? qv::platform::kScaleEdgeExtend | qv::platform::kScaleHighQuality
                                                    : qv::platform::kScaleEdgeExtend;
  if (bits == 8) {
    qv::platform::scaleARGB8888(source, destination, nullptr, flags);
    return;
  }
  if (bits != 16) return;
  if (!QVILSharedInternal::isMavericksOrLater()) {
    char description[320];
    snprintf(description, sizeof description,
             "-[QVILResize imageLibScaleRGBA:destination:interpolationMode:multiThreadOptions:bitsPerChannel:] "
             "(object %p): No implementation of 16 bit scaling with %s interpolation for SDKs lower than 10.9.",
             static_cast<const void*>(self), mode == QVILResizeLanczos5 ? "QVILResizeLanczos5" : "QVILResizeLanczos3");
    qv::platform::assertionFailed(description);
  }
  if (QVILSharedInternal::isMavericksOrLater()) qv::platform::scaleARGB16U(source, destination, nullptr, flags);
}

uint32_t squarePixelFlagOf(int32_t mode) {
  if (mode == QVILResizeCubic) return IPPI_INTER_CUBIC;
  if (mode == QVILResizeSuper) return IPPI_INTER_SUPER;
  return IPPI_INTER_NN;
}

}  // namespace

bool QVILResize::imageLibScaleRGBA(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                                   uint32_t multiThreadOptions, uint64_t bitsPerChannel) {
  if (sameSize(source, destination)) {
    QVILConversion::sharedInstance()->imageLibCopyRGBA(source, destination, multiThreadOptions, bitsPerChannel);
    return true;
  }
  if (mode >= QVILResizeQualityNone && mode <= QVILResizeQualityHigh) {
    drawScaled(source, destination, mode, bitsPerChannel);
    return true;
  }
  if (mode == QVILResizeLanczos5 || mode == QVILResizeLanczos3) {
    scaleWithLibraryScaler(this, source, destination, mode, bitsPerChannel);
    return true;
  }
  if (mode == QVILResizeLinear) {
    if (imageLibScaleLinearRGBA(source, destination, multiThreadOptions, bitsPerChannel)) return true;
    qv::scale::squarePixelRGBA(source, destination, IPPI_INTER_LINEAR, bitsPerChannel);
    return true;
  }
  if (mode == QVILResizeLanczos)
    return imageLibScaleLanczosRGBA(source, destination, multiThreadOptions, bitsPerChannel);
  qv::scale::squarePixelRGBA(source, destination, squarePixelFlagOf(mode), bitsPerChannel);
  return true;
}

bool QVILResize::imageLibScaleRGBA8888(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode) {
  return imageLibScaleRGBA8888(source, destination, mode, 0u);
}

bool QVILResize::imageLibScaleRGBA8888(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                                       uint32_t) {
  return imageLibScaleRGBA(source, destination, mode, 0, 8);
}

bool QVILResize::imageLibScaleRGBA16(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode) {
  return imageLibScaleRGBA16(source, destination, mode, 0u);
}

bool QVILResize::imageLibScaleRGBA16(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                                     uint32_t) {
  return imageLibScaleRGBA(source, destination, mode, 0, 16);
}

bool QVILResize::imageLibScaleRGBA8888(const vImage_Buffer* source, const vImage_Buffer* destination, int32_t mode,
                                       CGRect, CGRect, const char*, void*) {
  return imageLibScaleRGBA8888(source, destination, mode);
}
