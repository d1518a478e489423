#include "resize/resize_support.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "support/images.h"

namespace resizetest {

SpecBlock::SpecBlock(IppiSize src, IppiSize dst, int lobes, int misalignment) : start_(0), initStatus_(ippStsErr) {
  int specSize = 0, initSize = 0;
  const Ipp32u interpolation = lobes == kLinear ? 2 : 16;
  if (ippiResizeGetSize_8u(src, dst, interpolation, 0, &specSize, &initSize) != ippStsNoErr) return;
  // Room for the block behind the first 64-byte boundary and the misalignment.
  block_.assign(static_cast<size_t>(specSize) + 128, 0xEE);
  const uintptr_t base = reinterpret_cast<uintptr_t>(block_.data());
  start_ = ((base + 63) & ~uintptr_t{63}) - base + static_cast<size_t>(misalignment);
  init_.assign(static_cast<size_t>(initSize), 0xEE);
  initStatus_ = lobes == kLinear ? ippiResizeLinearInit_8u(src, dst, spec())
                                 : ippiResizeLanczosInit_8u(src, dst, static_cast<Ipp32u>(lobes), spec(), init_.data());
}

const ResizeSpec& SpecBlock::record() const {
  const uintptr_t p = reinterpret_cast<uintptr_t>(block_.data() + start_);
  return *reinterpret_cast<const ResizeSpec*>((p + 63) & ~uintptr_t{63});
}

IppStatus callResize(int lobes, int bits, const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, IppiPoint offset,
                     IppiSize size, uint32_t border, const ResizeSpec* spec, uint8_t* buffer) {
  const auto* src16 = reinterpret_cast<const Ipp16u*>(src);
  auto* dst16 = reinterpret_cast<Ipp16u*>(dst);
  if (lobes == kLinear)
    return bits == 8
               ? ippiResizeLinear_8u_C4R(src, srcStep, dst, dstStep, offset, size, border, nullptr, spec, buffer)
               : ippiResizeLinear_16u_C4R(src16, srcStep, dst16, dstStep, offset, size, border, nullptr, spec, buffer);
  return bits == 8
             ? ippiResizeLanczos_8u_C4R(src, srcStep, dst, dstStep, offset, size, border, nullptr, spec, buffer)
             : ippiResizeLanczos_16u_C4R(src16, srcStep, dst16, dstStep, offset, size, border, nullptr, spec, buffer);
}

int bufferSizeFor(const ResizeSpec* spec, IppiSize region) {
  int size = 0;
  const IppStatus status = ippiResizeGetBufferSize_8u(spec, region, 4, &size);
  EXPECT_TRUE(status == ippStsNoErr || status == ippStsSizeWrn) << status;
  return size;
}

RegionRun runRegion(const SourceWorld& source, ResizeSpec* spec, int lobes, int bits, IppiPoint offset, IppiSize size,
                    uint32_t border) {
  IppiPoint sourceOffset{0, 0};
  IppiSize sourceSize{0, 0};
  const IppStatus roi = ippiResizeGetSrcRoi_8u(spec, offset, size, &sourceOffset, &sourceSize);
  EXPECT_TRUE(roi == ippStsNoErr || roi == ippStsSizeWrn) << roi;
  const ResizeSpec& record = *reinterpret_cast<const ResizeSpec*>((reinterpret_cast<uintptr_t>(spec) + 63) & ~63ul);
  const IppiSize clamped{std::min(size.width, record.xFilter.dstLength - offset.x),
                         std::min(size.height, record.yFilter.dstLength - offset.y)};
  const int sampleBytes = bits / 8;
  qvtest::TestImage destination(clamped.width, clamped.height, 4 * sampleBytes, 12, sampleBytes == 1 ? 3 : 2);
  std::vector<uint8_t> scratch(static_cast<size_t>(bufferSizeFor(spec, size)));
  RegionRun run;
  run.status = callResize(lobes, bits, source.pixelAddress(sourceOffset.y, sourceOffset.x), source.step(),
                          destination.data(), destination.step(), offset, size, border, spec, scratch.data());
  run.surroundingsIntact = destination.surroundingsIntact();
  for (int r = 0; r < clamped.height; ++r)
    for (int i = 0; i < clamped.width * 4; ++i) {
      const uint8_t* p = destination.row(r) + static_cast<size_t>(i) * sampleBytes;
      run.samples.push_back(sampleBytes == 1 ? p[0] : static_cast<uint32_t>(p[0] | (p[1] << 8)));
    }
  return run;
}

std::vector<uint8_t> asBytes(const std::vector<uint32_t>& samples) {
  std::vector<uint8_t> bytes;
  for (uint32_t s : samples) {
    bytes.push_back(static_cast<uint8_t>(s));
    bytes.push_back(static_cast<uint8_t>(s >> 8));
  }
  return bytes;
}

}  // namespace resizetest
