#ifndef QV_CLASSES_STRIPS_H
#define QV_CLASSES_STRIPS_H

// The strip decomposition: a row-wise job cut into horizontal strips that run on the thread
// pool. The multithread option word holds the mode in bits 0-15 and the limit in bits 16-31.

#include <cstddef>
#include <cstdint>

#include "platform/parallel.h"

namespace qv::frame {

struct StripPlan {
  uint32_t count;     // strips
  uint32_t rows;      // rows of each strip but the last
  uint32_t lastRows;  // rows of the last strip: rows plus the whole remainder
};

inline uint32_t optionMode(uint32_t options) { return options & 0xFFFF; }
inline uint32_t optionLimit(uint32_t options) { return options >> 16; }

// 1, or the processor count that the mode selects: physical for mode 2, else logical. The
// count is not asked for when the mode is 0 or the limit is 1.
uint32_t processorCountForOptions(uint32_t options);

// The copy's own rule: split only above the minimum size in both directions, with a mode other
// than 0 and at least two processors.
bool copyShouldSplit(int32_t width, int32_t height, uint32_t options, uint32_t processors);

// The processor count, or its unsigned minimum with a non-zero limit; the height divided among
// them, the remainder all to the last strip.
StripPlan planStrips(uint32_t processors, uint32_t options, uint32_t height);

// Runs body(firstRow, rows) for each strip of the plan on the pool and returns when all end.
template <typename Body>
void runStrips(const StripPlan& plan, Body& body) {
  auto strip = [&plan, &body](size_t index) {
    const uint32_t rows = index + 1 == plan.count ? plan.lastRows : plan.rows;
    body(static_cast<uint32_t>(index) * plan.rows, rows);
  };
  platform::parallelApply(plan.count, strip);
}

// Forgets the cached processor counts, so that tests can play back other machines.
void forgetProcessorCounts();

}  // namespace qv::frame

#endif
