#ifndef QV_TESTS_REGION_FILL_REFERENCE_H
#define QV_TESTS_REGION_FILL_REFERENCE_H

// A plain model of the library's flood fill, written from its rules: the seed row walked
// exactly, a stack of span records with capacity width * height / 4 that wraps to 0 when full,
// pops of the last record pushed, three scans per record, and the 16-pixel right walk with its
// signed byte comparisons. Images are packed rows of width bytes.

#include <cstdint>
#include <vector>

#include "qvimage/ippdefs.h"

namespace qvtest {

struct ReferenceFill {
  std::vector<uint8_t> image;
  double area = 0;
  IppiRect box{0, 0, 0, 0};
  long long recordsWorked = 0;
  int wraps = 0;         // times the stack pointer went back to 0 on a push
  int wideWalks = 0;     // right walks that took the 16-pixel form
  bool finished = true;  // false when the model stopped at maxRecords
};

ReferenceFill referenceFill(std::vector<uint8_t> image, int width, int height, int seedX, int seedY, uint8_t newVal,
                            uint8_t minDelta, uint8_t maxDelta, long long maxRecords = 50000000);

}  // namespace qvtest

#endif
