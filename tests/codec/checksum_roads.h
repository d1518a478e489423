#ifndef QV_TESTS_CODEC_CHECKSUM_ROADS_H
#define QV_TESTS_CODEC_CHECKSUM_ROADS_H

// Every road a checksum can take: each tier as forced, and on y8 and e9 both with and without
// PCLMULQDQ in the enabled mask, so that the folding form and the table form both run there.

#include <functional>
#include <string>

namespace codectest {

struct Road {
  std::string name;  // tier, and "+pclmul" or "-pclmul" where the mask was changed
  bool folding;      // the CRC takes the folding form
};

// Runs body once per road, with a SCOPED_TRACE naming it. Roads that need PCLMULQDQ are left
// out when the processor has none.
void onEveryRoad(const std::function<void(const Road&)>& body);

}  // namespace codectest

#endif
