#include "region/fill_support.h"

#include <cstring>

namespace qvtest {

FillRun runFill(TestImage& image, IppiPoint seed, uint8_t newVal, uint8_t minDelta, uint8_t maxDelta,
                int scratchOffset) {
  int size = 0;
  FillRun run;
  if (ippiFloodFillGetSize_Grad(image.size(), &size) != ippStsNoErr) {
    run.status = ippStsSizeErr;
    return run;
  }
  constexpr size_t kCanaryBytes = 64;
  std::vector<uint64_t> storage((static_cast<size_t>(size) + kCanaryBytes + 16) / 8 + 1);
  uint8_t* scratch = reinterpret_cast<uint8_t*>(storage.data()) + scratchOffset;
  std::memset(scratch + size, kCanary, kCanaryBytes);
  run.status = ippiFloodFill_Range4Con_8u_C1IR(image.data(), image.step(), image.size(), seed, newVal, minDelta,
                                               maxDelta, &run.region, scratch);
  for (size_t i = 0; i < kCanaryBytes; ++i) run.scratchCanaryIntact &= scratch[size + i] == kCanary;
  return run;
}

std::vector<uint8_t> fillBytes(const TestImage& image, const FillRun& run) {
  std::vector<uint8_t> bytes = image.pixels();
  const auto* record = reinterpret_cast<const uint8_t*>(&run.region);
  bytes.insert(bytes.end(), record, record + sizeof run.region);
  bytes.push_back(static_cast<uint8_t>(run.status));
  return bytes;
}

void loadPixels(TestImage& image, const std::vector<uint8_t>& pixels) {
  for (int y = 0; y < image.height(); ++y)
    std::memcpy(image.row(y), &pixels[static_cast<size_t>(y) * image.width()], static_cast<size_t>(image.width()));
}

}  // namespace qvtest
