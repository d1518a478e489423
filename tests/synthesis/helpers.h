#ifndef QV_TESTS_SYNTHESIS_HELPERS_H
#define QV_TESTS_SYNTHESIS_HELPERS_H

// Shared pieces of the synthesis tests: a progress recorder that can raise the cancel flag,
// packed test images, and calls of the entry.

#include <cstdint>
#include <vector>

#include "qvimage/imageSynth.h"
#include "reference.h"

namespace synthtest {

// The callback's context: every percentage received; sets *flag at the cancelAt-th call.
struct Progress {
  std::vector<int32_t> percents;
  int cancelAt = -1;
  int32_t* flag = nullptr;
};
void recordProgress(int32_t percent, void* context);
inline void* progressCallback() { return reinterpret_cast<void*>(&recordProgress); }

// Bytes from a fixed linear congruential sequence, independent of rand().
std::vector<uint8_t> patternBytes(size_t count, uint32_t seed, uint8_t levels = 255);

// A packed mask with a rectangle of value inside.
std::vector<uint8_t> rectangleMask(int w, int h, int x0, int y0, int rw, int rh, uint8_t value = 255);

ImageSynthParametersStruct toParameters(const synthref::Params& p);

struct EntryResult {
  int32_t result;
  std::vector<uint8_t> image;
  std::vector<int32_t> percents;
};
// imageSynth on packed copies of image and mask; cancelAt as in Progress (0: flag set before).
EntryResult callEntry(std::vector<uint8_t> image, std::vector<uint8_t> mask, int w, int h, int format,
                      const synthref::Params& params, int cancelAt = -1);

}  // namespace synthtest

#endif
