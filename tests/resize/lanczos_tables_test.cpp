// The Lanczos kernel tables: every tier's copies and the exported table hold the rule's values.

#include <gtest/gtest.h>

#include <vector>

#include "qvimage/qvimage.h"
#include "resize/resize_reference.h"

#define QV_DECLARE_TIER_TABLES(tier)  \
  namespace tier {                    \
  extern const Ipp32f tblL2[204];     \
  extern const Ipp32f tblL3[304];     \
  }
QV_DECLARE_TIER_TABLES(m7)
QV_DECLARE_TIER_TABLES(u8)
QV_DECLARE_TIER_TABLES(y8)
QV_DECLARE_TIER_TABLES(e9)

namespace {

std::vector<float> entries(const Ipp32f* table, int length) { return std::vector<float>(table, table + length); }

TEST(LanczosTables, EveryCopyHoldsTheKernelAtStepsOfOneHundredth) {
  const std::vector<float> two = resizetest::referenceKernelTable(2, 204);
  const std::vector<float> three = resizetest::referenceKernelTable(3, 304);
  EXPECT_EQ(entries(tblLanczos3, 304), three);
  for (const Ipp32f* table : {m7::tblL3, u8::tblL3, y8::tblL3, e9::tblL3}) EXPECT_EQ(entries(table, 304), three);
  for (const Ipp32f* table : {m7::tblL2, u8::tblL2, y8::tblL2, e9::tblL2}) EXPECT_EQ(entries(table, 204), two);
}

TEST(LanczosTables, OneAtZeroAndZeroAtTheWholeNumbersAndPastTheEdge) {
  EXPECT_EQ(tblLanczos3[0], 1.0f);
  for (int k : {100, 200, 300, 301, 302, 303}) EXPECT_EQ(tblLanczos3[k], 0.0f) << k;
  for (int k : {100, 200, 201, 202, 203}) EXPECT_EQ(m7::tblL2[k], 0.0f) << k;
  // The first lobe is positive, the second negative, the third positive again.
  EXPECT_GT(tblLanczos3[50], 0.0f);
  EXPECT_LT(tblLanczos3[150], 0.0f);
  EXPECT_GT(tblLanczos3[250], 0.0f);
}

}  // namespace
