// QVILResize: the linear and Lanczos engines, which resize a whole image with a resize
// ResizeSpec, on the calling thread or in strips of destination rows.

#include "classes/buffer_region.h"
#include "classes/strips.h"
#include "platform/log.h"
#include "platform/parallel.h"
#include "platform/text.h"
#include "qvimage/QVILResize.h"
#include "qvimage/QVILSharedInternal.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi.h"

namespace {

// The primitives of one depth: 8-bit and 16-bit engines differ in these and in their resize.
struct DepthPrimitives {
  IppStatus (*getSize)(IppiSize, IppiSize, Ipp32u, Ipp32u, int*, int*);
  IppStatus (*getBufferSize)(const ResizeSpec*, IppiSize, Ipp32u, int*);
  IppStatus (*getBorderSize)(const ResizeSpec*, Ipp32u*);
  IppStatus (*getSrcRoi)(const ResizeSpec*, IppiPoint, IppiSize, IppiPoint*, IppiSize*);
};

const DepthPrimitives kPrimitives8u{ippiResizeGetSize_8u, ippiResizeGetBufferSize_8u, ippiResizeGetBorderSize_8u,
                                    ippiResizeGetSrcRoi_8u};
const DepthPrimitives kPrimitives16u{ippiResizeGetSize_16u, ippiResizeGetBufferSize_16u, ippiResizeGetBorderSize_16u,
                                     ippiResizeGetSrcRoi_16u};

// A resize of a region with border 1 (replicate) and no border value; pointers as bytes.
using ResizeRegion = IppStatus (*)(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, IppiPoint offset,
                                   IppiSize size, const ResizeSpec* spec, Ipp8u* buffer);

// What each of the four engines is made of.
struct Engine {
  const DepthPrimitives& primitives;
  Ipp32u interpolation;
  const char* sizeFailureLine;  // with the status text and the two sizes
  const char* initFailureLine;  // with the status text, and the two sizes when it has them
  bool initFailureShowsSizes;
  Ipp8u* (*allocateInit)(int bytes);
  Ipp8u* (*allocateSpec)(int bytes);
  IppStatus (*init)(IppiSize src, IppiSize dst, ResizeSpec* spec, Ipp8u* initBuffer);
  ResizeRegion resize;
  uint32_t (*channels)();
  bool freesScratchOnCallingThread;
};

constexpr const char* kInitializationErrorWithSizes = "Scale initialization error: %s srcSize: %s destSize: %s";

Ipp8u* allocate8u(int bytes) { return ippsMalloc_8u(bytes); }
// The byte count taken as a count of 16-bit elements: twice the room.
Ipp8u* allocate16u(int bytes) { return reinterpret_cast<Ipp8u*>(ippsMalloc_16u(bytes)); }

uint32_t fourChannels() { return 4; }
uint32_t channelsPerPixel() { return QVILSharedInternal::numberOfChannelsPerPixel(); }

IppStatus linearInit8u(IppiSize src, IppiSize dst, ResizeSpec* spec, Ipp8u*) {
  return ippiResizeLinearInit_8u(src, dst, spec);
}
IppStatus linearInit16u(IppiSize src, IppiSize dst, ResizeSpec* spec, Ipp8u*) {
  return ippiResizeLinearInit_16u(src, dst, spec);
}
IppStatus lanczosInit8u(IppiSize src, IppiSize dst, ResizeSpec* spec, Ipp8u* initBuffer) {
  return ippiResizeLanczosInit_8u(src, dst, 3, spec, initBuffer);
}
IppStatus lanczosInit16u(IppiSize src, IppiSize dst, ResizeSpec* spec, Ipp8u* initBuffer) {
  return ippiResizeLanczosInit_16u(src, dst, 3, spec, initBuffer);
}

IppStatus linear8u(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, IppiPoint offset, IppiSize size,
                   const ResizeSpec* spec, Ipp8u* buffer) {
  return ippiResizeLinear_8u_C4R(src, srcStep, dst, dstStep, offset, size, ippBorderRepl, nullptr, spec, buffer);
}
IppStatus linear16u(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, IppiPoint offset, IppiSize size,
                    const ResizeSpec* spec, Ipp8u* buffer) {
  return ippiResizeLinear_16u_C4R(reinterpret_cast<const Ipp16u*>(src), srcStep, reinterpret_cast<Ipp16u*>(dst),
                                  dstStep, offset, size, ippBorderRepl, nullptr, spec, buffer);
}
IppStatus lanczos8u(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, IppiPoint offset, IppiSize size,
                    const ResizeSpec* spec, Ipp8u* buffer) {
  return ippiResizeLanczos_8u_C4R(src, srcStep, dst, dstStep, offset, size, ippBorderRepl, nullptr, spec, buffer);
}
IppStatus lanczos16u(const Ipp8u* src, int srcStep, Ipp8u* dst, int dstStep, IppiPoint offset, IppiSize size,
                     const ResizeSpec* spec, Ipp8u* buffer) {
  return ippiResizeLanczos_16u_C4R(reinterpret_cast<const Ipp16u*>(src), srcStep, reinterpret_cast<Ipp16u*>(dst),
                                   dstStep, offset, size, ippBorderRepl, nullptr, spec, buffer);
}

constexpr const char* kGetSizeErrorWithSizes = "Scale get size error: %s srcSize: %s destSize: %s";

const Engine kLinear8u{.primitives = kPrimitives8u,
                       .interpolation = 2,
                       .sizeFailureLine = kInitializationErrorWithSizes,
                       .initFailureLine = "Scale initialization error: %s",
                       .initFailureShowsSizes = false,
                       .allocateInit = allocate8u,
                       .allocateSpec = allocate8u,
                       .init = linearInit8u,
                       .resize = linear8u,
                       .channels = fourChannels,
                       .freesScratchOnCallingThread = false};

const Engine kLinear16u{.primitives = kPrimitives16u,
                        .interpolation = 2,
                        .sizeFailureLine = kInitializationErrorWithSizes,
                        .initFailureLine = "Scale initialization error: %s",
                        .initFailureShowsSizes = false,
                        .allocateInit = allocate16u,
                        .allocateSpec = allocate16u,
                        .init = linearInit16u,
                        .resize = linear16u,
                        .channels = channelsPerPixel,
                        .freesScratchOnCallingThread = false};

const Engine kLanczos8u{.primitives = kPrimitives8u,
                        .interpolation = 16,
                        .sizeFailureLine = kGetSizeErrorWithSizes,
                        .initFailureLine = kInitializationErrorWithSizes,
                        .initFailureShowsSizes = true,
                        .allocateInit = allocate8u,
                        .allocateSpec = allocate8u,
                        .init = lanczosInit8u,
                        .resize = lanczos8u,
                        .channels = fourChannels,
                        .freesScratchOnCallingThread = true};

const Engine kLanczos16u{.primitives = kPrimitives16u,
                         .interpolation = 16,
                         .sizeFailureLine = kGetSizeErrorWithSizes,
                         .initFailureLine = kInitializationErrorWithSizes,
                         .initFailureShowsSizes = true,
                         .allocateInit = allocate8u,
                         .allocateSpec = allocate16u,
                         .init = lanczosInit16u,
                         .resize = lanczos16u,
                         .channels = channelsPerPixel,
                         .freesScratchOnCallingThread = true};

std::string sizeText(const vImage_Buffer* buffer) {
  return qv::platform::stringFromSize({static_cast<CGFloat>(buffer->width), static_cast<CGFloat>(buffer->height)});
}

void logFailure(const char* line, bool withSizes, IppStatus status, const vImage_Buffer* source,
                const vImage_Buffer* destination) {
  if (!withSizes) {
    qv::platform::logLine(line, ippGetStatusString(status));
    return;
  }
  qv::platform::logLine(line, ippGetStatusString(status), sizeText(source).c_str(), sizeText(destination).c_str());
}

// One job: the two buffers, the ResizeSpec made for them, and how they are read.
struct Job {
  const Engine& engine;
  const vImage_Buffer* source;
  const vImage_Buffer* destination;
  IppiSize dstSize;
  ResizeSpec* spec;
  Ipp8u* initBuffer;

  const Ipp8u* sourceRow(int row) const {
    return qv::frame::pixelsOf<const Ipp8u>(source) + static_cast<intptr_t>(row) * qv::frame::stepOf(source);
  }
  Ipp8u* destinationRow(int row) const {
    return qv::frame::pixelsOf<Ipp8u>(destination) + static_cast<intptr_t>(row) * qv::frame::stepOf(destination);
  }
  IppStatus resize(const Ipp8u* from, Ipp8u* to, IppiPoint offset, IppiSize size, Ipp8u* scratch) const {
    return engine.resize(from, qv::frame::stepOf(source), to, qv::frame::stepOf(destination), offset, size, spec,
                         scratch);
  }
};

// The whole destination in one call on the calling thread. The linear engines keep their
// scratch block allocated afterwards.
bool resizeOnCallingThread(const Job& job) {
  int scratchSize = 0;
  const IppStatus status =
      job.engine.primitives.getBufferSize(job.spec, job.dstSize, job.engine.channels(), &scratchSize);
  Ipp8u* scratch = status == ippStsNoErr ? ippsMalloc_8u(scratchSize) : nullptr;
  if (scratch == nullptr) {
    ippsFree(job.spec);
    ippsFree(job.initBuffer);
    return false;
  }
  job.resize(job.sourceRow(0), job.destinationRow(0), {0, 0}, job.dstSize, scratch);  // status dropped
  if (job.engine.freesScratchOnCallingThread) ippsFree(scratch);
  ippsFree(job.initBuffer);
  ippsFree(job.spec);
  return true;
}

// Strip i of the plan: its rows of the destination, the source rows that the ResizeSpec maps
// them to, and its own slice of the scratch block.
void resizeStrip(const Job& job, const qv::frame::StripPlan& plan, Ipp8u* scratch, int sliceSize, uint32_t i) {
  const uint32_t rows = i + 1 == plan.count ? plan.lastRows : plan.rows;
  const int firstRow = static_cast<int>(i * plan.rows);
  const IppiPoint offset{0, firstRow};
  const IppiSize size{job.dstSize.width, static_cast<int>(rows)};
  IppiPoint sourceOffset{0, 0};
  IppiSize sourceSize{0, 0};
  job.engine.primitives.getSrcRoi(job.spec, offset, size, &sourceOffset, &sourceSize);  // status dropped
  job.resize(job.sourceRow(sourceOffset.y), job.destinationRow(firstRow), offset, size,
             scratch + static_cast<intptr_t>(i) * sliceSize);  // status dropped
}

// The destination cut into strips, one per processor (or fewer, by the limit), each with a
// scratch slice sized for its height; a failed allocation of the slices leaves the destination
// as it was and still answers true.
bool resizeInStrips(const Job& job, uint32_t processors, uint32_t options) {
  Ipp32u borders[4];
  if (job.engine.primitives.getBorderSize(job.spec, borders) != ippStsNoErr) {
    ippsFree(job.spec);
    ippsFree(job.initBuffer);
    return false;
  }
  const qv::frame::StripPlan plan =
      qv::frame::planStrips(processors, options, static_cast<uint32_t>(job.dstSize.height));
  const uint32_t channels = job.engine.channels();
  int sliceSize = 0, lastSize = 0;
  job.engine.primitives.getBufferSize(job.spec, {job.dstSize.width, static_cast<int>(plan.rows)}, channels, &sliceSize);
  job.engine.primitives.getBufferSize(job.spec, {job.dstSize.width, static_cast<int>(plan.lastRows)}, channels,
                                      &lastSize);
  const uint32_t scratchSize = (plan.count - 1) * static_cast<uint32_t>(sliceSize) + static_cast<uint32_t>(lastSize);
  Ipp8u* scratch = ippsMalloc_8u(static_cast<int>(scratchSize));
  if (scratch != nullptr) {
    auto strip = [&](size_t i) { resizeStrip(job, plan, scratch, sliceSize, static_cast<uint32_t>(i)); };
    qv::platform::parallelApply(plan.count, strip);
    ippsFree(scratch);
  }
  ippsFree(job.initBuffer);
  ippsFree(job.spec);
  return true;
}

bool runEngine(const Engine& engine, const vImage_Buffer* source, const vImage_Buffer* destination, uint32_t options) {
  const IppiSize srcSize = qv::frame::regionOf(source);
  const IppiSize dstSize = qv::frame::regionOf(destination);
  int specSize = 0, initSize = 0;
  IppStatus status = engine.primitives.getSize(srcSize, dstSize, engine.interpolation, 0, &specSize, &initSize);
  if (status != ippStsNoErr) {
    logFailure(engine.sizeFailureLine, true, status, source, destination);
    return false;
  }
  Ipp8u* initBuffer = engine.allocateInit(initSize);
  auto* spec = reinterpret_cast<ResizeSpec*>(engine.allocateSpec(specSize));
  status = engine.init(srcSize, dstSize, spec, initBuffer);
  if (status != ippStsNoErr) {
    ippsFree(spec);
    ippsFree(initBuffer);
    logFailure(engine.initFailureLine, engine.initFailureShowsSizes, status, source, destination);
    return false;
  }
  const Job job{engine, source, destination, dstSize, spec, initBuffer};
  const uint32_t processors = qv::frame::processorCountForOptions(options);
  if (processors < 2) return resizeOnCallingThread(job);
  return resizeInStrips(job, processors, options);
}

}  // namespace

bool QVILResize::imageLibScaleLinearRGBA(const vImage_Buffer* source, const vImage_Buffer* destination,
                                         uint32_t multiThreadOptions, uint64_t bitsPerChannel) {
  if (bitsPerChannel == 16) return imageLibScaleLinearRGBA16(source, destination, multiThreadOptions);
  if (bitsPerChannel == 8) return imageLibScaleLinearRGBA8888(source, destination, multiThreadOptions);
  return false;
}

bool QVILResize::imageLibScaleLinearRGBA8888(const vImage_Buffer* source, const vImage_Buffer* destination,
                                             uint32_t multiThreadOptions) {
  return runEngine(kLinear8u, source, destination, multiThreadOptions);
}

bool QVILResize::imageLibScaleLinearRGBA16(const vImage_Buffer* source, const vImage_Buffer* destination,
                                           uint32_t multiThreadOptions) {
  return runEngine(kLinear16u, source, destination, multiThreadOptions);
}

bool QVILResize::imageLibScaleLanczosRGBA(const vImage_Buffer* source, const vImage_Buffer* destination,
                                          uint32_t multiThreadOptions, uint64_t bitsPerChannel) {
  if (bitsPerChannel == 16) return imageLibScaleLanczosRGBA16(source, destination, multiThreadOptions);
  if (bitsPerChannel == 8) return imageLibScaleLanczosRGBA8888(source, destination, multiThreadOptions);
  return false;
}

bool QVILResize::imageLibScaleLanczosRGBA8888(const vImage_Buffer* source, const vImage_Buffer* destination,
                                              uint32_t multiThreadOptions) {
  return runEngine(kLanczos8u, source, destination, multiThreadOptions);
}

bool QVILResize::imageLibScaleLanczosRGBA16(const vImage_Buffer* source, const vImage_Buffer* destination,
                                            uint32_t multiThreadOptions) {
  return runEngine(kLanczos16u, source, destination, multiThreadOptions);
}
