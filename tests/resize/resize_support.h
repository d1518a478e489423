#ifndef QV_TESTS_RESIZE_RESIZE_SUPPORT_H
#define QV_TESTS_RESIZE_RESIZE_SUPPORT_H

// Running the resize primitives in tests: ResizeSpec records made by the library in misaligned
// blocks, one call on a region with its scratch sized by the query, and the samples it wrote.

#include <cstdint>
#include <vector>

#include "qvimage/qvimage.h"
#include "resize/resize_reference.h"

namespace resizetest {

// lobes 1 stands for the linear resize, 2 and 3 for Lanczos.
constexpr int kLinear = 1;

// A ResizeSpec for two sizes, made by the init of its kind in a block whose pointer lies
// misalignment bytes past a 64-byte boundary.
class SpecBlock {
 public:
  SpecBlock(IppiSize src, IppiSize dst, int lobes, int misalignment = 0);
  ResizeSpec* spec() { return reinterpret_cast<ResizeSpec*>(block_.data() + start_); }
  // The record itself, at the block's first multiple of 64.
  const ResizeSpec& record() const;
  IppStatus initStatus() const { return initStatus_; }
  const std::vector<uint8_t>& initBuffer() const { return init_; }

 private:
  std::vector<uint8_t> block_;
  std::vector<uint8_t> init_;
  size_t start_;
  IppStatus initStatus_;
};

// The resize primitive of the kind and depth.
IppStatus callResize(int lobes, int bits, const uint8_t* src, int srcStep, uint8_t* dst, int dstStep, IppiPoint offset,
                     IppiSize size, uint32_t border, const ResizeSpec* spec, uint8_t* buffer);

// The scratch size that the query gives for a region.
int bufferSizeFor(const ResizeSpec* spec, IppiSize region);

struct RegionRun {
  IppStatus status;
  std::vector<uint32_t> samples;  // of the clamped region, four a pixel
  bool surroundingsIntact;        // nothing written around the destination region
};

// Resizes a region of the destination into an image of its clamped size, from the source
// pointer that the source-region query gives for the offset.
RegionRun runRegion(const SourceWorld& source, ResizeSpec* spec, int lobes, int bits, IppiPoint offset, IppiSize size,
                    uint32_t border);

// The samples of a resize as bytes, for comparing tiers.
std::vector<uint8_t> asBytes(const std::vector<uint32_t>& samples);

}  // namespace resizetest

#endif
