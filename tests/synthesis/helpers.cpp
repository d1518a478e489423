#include "helpers.h"

namespace synthtest {

void recordProgress(int32_t percent, void* context) {
  auto* progress = static_cast<Progress*>(context);
  progress->percents.push_back(percent);
  if (static_cast<int>(progress->percents.size()) == progress->cancelAt) *progress->flag = 1;
}

std::vector<uint8_t> patternBytes(size_t count, uint32_t seed, uint8_t levels) {
  std::vector<uint8_t> bytes(count);
  uint32_t state = seed * 2654435761u + 1u;
  for (uint8_t& b : bytes) {
    state = state * 1664525u + 1013904223u;
    b = static_cast<uint8_t>((state >> 24) % (static_cast<uint32_t>(levels) + 1u));
  }
  return bytes;
}

std::vector<uint8_t> rectangleMask(int w, int h, int x0, int y0, int rw, int rh, uint8_t value) {
  std::vector<uint8_t> mask(static_cast<size_t>(w) * h, 0);
  for (int y = y0; y < y0 + rh; ++y)
    for (int x = x0; x < x0 + rw; ++x) mask[static_cast<size_t>(y) * w + x] = value;
  return mask;
}

ImageSynthParametersStruct toParameters(const synthref::Params& p) {
  ImageSynthParametersStruct s;
  s.wrapHorizontally = p.wrapH ? 1 : 0;
  s.wrapVertically = p.wrapV ? 1 : 0;
  s.targetOrder = static_cast<int32_t>(p.order);
  s.mapWeight = p.mapWeight;
  s.sensitivity = p.sensitivity;
  s.neighbourLimit = p.neighbourLimit;
  s.probeLimit = p.probeLimit;
  return s;
}

EntryResult callEntry(std::vector<uint8_t> image, std::vector<uint8_t> mask, int w, int h, int format,
                      const synthref::Params& params, int cancelAt) {
  const uint32_t n = countPixelelsPerPixelForFormat(format);
  _ImageBuffer img{image.data(), static_cast<uint32_t>(w), static_cast<uint32_t>(h), static_cast<uint64_t>(w) * n};
  _ImageBuffer msk{mask.data(), static_cast<uint32_t>(w), static_cast<uint32_t>(h), static_cast<uint64_t>(w)};
  ImageSynthParametersStruct parameters = toParameters(params);
  int32_t flag = cancelAt == 0 ? 1 : 0;
  Progress progress;
  progress.cancelAt = cancelAt;
  progress.flag = &flag;
  const int32_t result = imageSynth(&img, &msk, format, &parameters, progressCallback(), &progress, &flag);
  return {result, image, progress.percents};
}

}  // namespace synthtest
