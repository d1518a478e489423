#ifndef QV_TESTS_SUPPORT_TIERS_H
#define QV_TESTS_SUPPORT_TIERS_H

// Running a test body on each of the four tiers, forced with ippInitCpu, and comparing what the
// tiers produced byte for byte.

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace qvtest {

struct Tier {
  const char* name;  // m7, u8, y8, e9
  int cpuCode;       // the ippInitCpu code that forces it
  int slot;          // the jump-table slot it selects
};

// m7 (0x00), u8 (0x21), y8 (0x23), e9 (0x46).
const std::vector<Tier>& allTiers();

// Forces a tier for the life of the object, then restores the slot and mask that were in force.
class ForcedTier {
 public:
  explicit ForcedTier(const Tier& tier);
  ~ForcedTier();
  ForcedTier(const ForcedTier&) = delete;
  ForcedTier& operator=(const ForcedTier&) = delete;

 private:
  int savedSlot_;
  int savedLowPower_;
  unsigned long long savedMask_;
  unsigned long long savedFeatures_;
  int savedFeaturesValid_;
};

// Runs body on every tier with a SCOPED_TRACE naming it. body answers the bytes it produced;
// every tier must produce the same bytes as m7.
void expectSameOnEveryTier(const std::function<std::vector<unsigned char>()>& body);

// Runs body on every tier with a SCOPED_TRACE naming it.
void onEveryTier(const std::function<void(const Tier&)>& body);

}  // namespace qvtest

#endif
