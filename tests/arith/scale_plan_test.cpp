// The row shape and store kind that each tier's depth conversion chooses: a contiguous image
// becomes one row while the total stays below 0x7FFFFFFF channels, and stores stream from
// 1398101 channels going up and 838860 going down, the latter in the fast form only.

#include <gtest/gtest.h>

#include "primitives/image/pixel/arith/scale_plan.h"
#include "qvimage/ippdefs.h"

#define QV_DECLARE_SCALE_PLANS(tier)                                                             \
  namespace tier {                                                                               \
  qv::arith::ScalePlan owniPlanScale8u16u(int srcStep, int dstStep, IppiSize roiSize);           \
  qv::arith::ScalePlan owniPlanScale16u8u(int srcStep, int dstStep, IppiSize roiSize, int hint); \
  }
QV_DECLARE_SCALE_PLANS(m7)
QV_DECLARE_SCALE_PLANS(u8)
QV_DECLARE_SCALE_PLANS(y8)
QV_DECLARE_SCALE_PLANS(e9)

namespace {

using qv::arith::ScalePlan;

struct TierPlans {
  const char* name;
  ScalePlan (*up)(int, int, IppiSize);
  ScalePlan (*down)(int, int, IppiSize, int);
};

const TierPlans kTiers[] = {{"m7", m7::owniPlanScale8u16u, m7::owniPlanScale16u8u},
                            {"u8", u8::owniPlanScale8u16u, u8::owniPlanScale16u8u},
                            {"y8", y8::owniPlanScale8u16u, y8::owniPlanScale16u8u},
                            {"e9", e9::owniPlanScale8u16u, e9::owniPlanScale16u8u}};

void expectPlan(const ScalePlan& plan, int64_t channelsPerRow, int rows, bool streaming) {
  EXPECT_EQ(plan.channelsPerRow, channelsPerRow);
  EXPECT_EQ(plan.rows, rows);
  EXPECT_EQ(plan.streaming, streaming);
}

TEST(ScalePlan, ContiguousImagesBecomeOneRow) {
  for (const TierPlans& tier : kTiers) {
    SCOPED_TRACE(tier.name);
    expectPlan(tier.up(40, 80, {10, 3}), 120, 1, false);
    expectPlan(tier.down(80, 40, {10, 3}, 0), 120, 1, false);
    expectPlan(tier.down(80, 40, {10, 3}, 2), 120, 1, false);
  }
}

TEST(ScalePlan, PaddedOrMismatchedStepsKeepTheRows) {
  for (const TierPlans& tier : kTiers) {
    SCOPED_TRACE(tier.name);
    expectPlan(tier.up(44, 88, {10, 3}), 40, 3, false);  // padded 8-bit rows
    expectPlan(tier.up(40, 96, {10, 3}), 40, 3, false);  // 16-bit step not twice
    expectPlan(tier.down(88, 44, {10, 3}, 0), 40, 3, false);
    expectPlan(tier.down(96, 40, {10, 3}, 0), 40, 3, false);
  }
}

TEST(ScalePlan, TotalsFromLongestRowStayInRows) {
  for (const TierPlans& tier : kTiers) {
    SCOPED_TRACE(tier.name);
    // The 16-bit step must fit an i32, so the 8-bit rows hold at most 0x3FFFFFFC channels.
    expectPlan(tier.up(0x3FFFFFFC, 0x7FFFFFF8, {0xFFFFFFF, 2}), 0x7FFFFFF8, 1, true);
    expectPlan(tier.up(0x20000000, 0x40000000, {0x8000000, 3}), 0x60000000, 1, true);
    // 0x80000000 channels: not below the limit, so rows; as i32 negative, so not streamed.
    expectPlan(tier.up(0x20000000, 0x40000000, {0x8000000, 4}), 0x20000000, 4, false);
    expectPlan(tier.down(0x40000000, 0x20000000, {0x8000000, 4}, 0), 0x20000000, 4, false);
    // 0xFFFFFFE0 channels in rows of mismatched steps: as i32 negative again.
    expectPlan(tier.up(0x7FFFFFF0, 0x7FFFFFF0, {0x1FFFFFFC, 2}), 0x7FFFFFF0, 2, false);
  }
}

TEST(ScalePlan, StreamingStartsGoingUp) {
  for (const TierPlans& tier : kTiers) {
    SCOPED_TRACE(tier.name);
    // 1398100 = 4 * 349525: just below; 1398104 = 4 * 349526: above.
    expectPlan(tier.up(4 * 349525, 8 * 349525, {349525, 1}), 1398100, 1, false);
    expectPlan(tier.up(4 * 349526, 8 * 349526, {349526, 1}), 1398104, 1, true);
    // Not flattened: the total still counts.
    expectPlan(tier.up(1000, 3000, {100, 3495}), 400, 3495, false);  // 1398000
    expectPlan(tier.up(1000, 3000, {100, 3496}), 400, 3496, true);   // 1398400
  }
}

TEST(ScalePlan, StreamingStartsGoingDownInTheFastFormOnly) {
  for (const TierPlans& tier : kTiers) {
    SCOPED_TRACE(tier.name);
    // 838860 = 4 * 209715 exactly: streams.
    expectPlan(tier.down(8 * 209715, 4 * 209715, {209715, 1}, 0), 838860, 1, true);
    expectPlan(tier.down(8 * 209714, 4 * 209714, {209714, 1}, 0), 838856, 1, false);
    expectPlan(tier.down(8 * 209715, 4 * 209715, {209715, 1}, 1), 838860, 1, true);
    expectPlan(tier.down(8 * 209715, 4 * 209715, {209715, 1}, 2), 838860, 1, false);
    expectPlan(tier.down(8 * 999999, 4 * 999999, {999999, 1}, 2), 3999996, 1, false);
  }
}

}  // namespace
