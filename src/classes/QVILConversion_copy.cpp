// QVILConversion: the shared instance and the RGBA copies with their strips.

#include "classes/buffer_region.h"
#include "classes/shared_instance.h"
#include "classes/strips.h"
#include "platform/log.h"
#include "qvimage/QVILConversion.h"
#include "qvimage/ippi.h"

namespace {

QVILConversion* sharedConversion = nullptr;

// One call of the copy primitive of the depth on the rows [firstRow, firstRow + rows).
IppStatus copyRows(const vImage_Buffer* src, const vImage_Buffer* dest, uint64_t bitsPerChannel, uint32_t firstRow,
                   IppiSize region) {
  const int srcStep = qv::frame::stepOf(src);
  const int dstStep = qv::frame::stepOf(dest);
  const auto* from = qv::frame::pixelsOf<const Ipp8u>(src) + static_cast<intptr_t>(firstRow) * srcStep;
  auto* to = qv::frame::pixelsOf<Ipp8u>(dest) + static_cast<intptr_t>(firstRow) * dstStep;
  if (bitsPerChannel == 8) return ippiCopy_8u_C4R(from, srcStep, to, dstStep, region);
  return ippiCopy_16u_C4R(reinterpret_cast<const Ipp16u*>(from), srcStep, reinterpret_cast<Ipp16u*>(to), dstStep,
                          region);
}

}  // namespace

QVILConversion* QVILConversion::sharedInstance() {
  return qv::frame::sharedInstanceOf(sharedConversion, [] { return new QVILConversion(); });
}

bool QVILConversion::imageLibCopyRGBA(const vImage_Buffer* src, const vImage_Buffer* dest, uint32_t multithreadOptions,
                                      uint64_t bitsPerChannel) {
  if (bitsPerChannel != 8 && bitsPerChannel != 16) {
    qv::platform::logLine("Error: %s unsupported bits per chanel: %lu",
                          "-[QVILConversion imageLibCopyRGBA:dest:multithreadOptions:bitsPerChannel:]",
                          static_cast<unsigned long>(bitsPerChannel));
    return false;
  }
  const IppiSize region = qv::frame::regionOf(dest);
  const uint32_t processors = qv::frame::processorCountForOptions(multithreadOptions);
  if (!qv::frame::copyShouldSplit(region.width, region.height, multithreadOptions, processors)) {
    copyRows(src, dest, bitsPerChannel, 0, region);  // status dropped
    return true;
  }
  const qv::frame::StripPlan plan =
      qv::frame::planStrips(processors, multithreadOptions, static_cast<uint32_t>(region.height));
  const IppiSize stripRegion{region.width, static_cast<int>(plan.rows)};
  const IppiSize lastRegion{region.width, static_cast<int>(plan.lastRows)};
  auto strip = [&](uint32_t firstRow, uint32_t rows) {
    copyRows(src, dest, bitsPerChannel, firstRow, rows == plan.lastRows ? lastRegion : stripRegion);
  };
  qv::frame::runStrips(plan, strip);  // strip statuses dropped
  return true;
}

bool QVILConversion::imageLibCopyRGBA8888(const vImage_Buffer* src, const vImage_Buffer* dest,
                                          uint32_t multithreadOptions) {
  return imageLibCopyRGBA(src, dest, multithreadOptions, 8);
}

bool QVILConversion::imageLibCopyRGBA16(const vImage_Buffer* src, const vImage_Buffer* dest,
                                        uint32_t multithreadOptions) {
  return imageLibCopyRGBA(src, dest, multithreadOptions, 16);
}

bool QVILConversion::imageLibCopyRGBA8888(const vImage_Buffer* src, const vImage_Buffer* dest) {
  return imageLibCopyRGBA8888(src, dest, 0);
}

bool QVILConversion::imageLibCopyRGBA16(const vImage_Buffer* src, const vImage_Buffer* dest) {
  return imageLibCopyRGBA16(src, dest, 0);
}
