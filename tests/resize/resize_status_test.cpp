// The statuses of the resize primitives in the order of their checks, with the destination and
// the scratch left as they were; the warning of a clamped region.

#include <gtest/gtest.h>

#include <vector>

#include "qvimage/qvimage.h"
#include "resize/resize_support.h"
#include "support/images.h"
#include "support/tiers.h"

namespace {

using resizetest::kLinear;
using resizetest::SpecBlock;

// One call on a 12 x 10 source and an 8 x 6 destination with any of its arguments spoilt.
struct Call {
  int lobes, bits;
  bool nullSource = false, nullDestination = false, nullSpec = false, nullBuffer = false, unmarked = false;
  int srcStepChange = 0, dstStepChange = 0;
  IppiPoint offset{0, 0};
  IppiSize size{8, 6};
  uint32_t border = ippBorderRepl;
};

void expectRefused(const Call& call, IppStatus expected) {
  SpecBlock block({12, 10}, {8, 6}, call.lobes);
  ASSERT_EQ(block.initStatus(), ippStsNoErr);
  SpecBlock spoilt({12, 10}, {8, 6}, call.lobes);
  const_cast<ResizeSpec&>(spoilt.record()).magic = 0x4B617388;
  const int pixelBytes = 4 * call.bits / 8;
  qvtest::TestImage source(12 + 8, 10 + 8, pixelBytes, 4, 0);
  qvtest::TestImage destination(8, 6, pixelBytes, 8, 2);
  source.fillRandom(3);
  destination.fillRandom(4);
  std::vector<uint8_t> scratch(4096, 0x5C);
  const std::vector<uint8_t> before = destination.allBytes(), scratchBefore = scratch;
  const uint8_t* from = call.nullSource ? nullptr : source.row(4) + 4 * pixelBytes;
  uint8_t* to = call.nullDestination ? nullptr : destination.data();
  ResizeSpec* spec = call.nullSpec ? nullptr : (call.unmarked ? spoilt.spec() : block.spec());
  uint8_t* buffer = call.nullBuffer ? nullptr : scratch.data();
  EXPECT_EQ(resizetest::callResize(call.lobes, call.bits, from, source.step() + call.srcStepChange, to,
                                   destination.step() + call.dstStepChange, call.offset, call.size, call.border, spec,
                                   buffer),
            expected);
  EXPECT_EQ(destination.allBytes(), before);
  EXPECT_EQ(scratch, scratchBefore);
}

TEST(ResizeStatus, EveryStatusInTheOrderOfItsCheck) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (int lobes : {kLinear, 2, 3})
      for (int bits : {8, 16}) {
        SCOPED_TRACE(testing::Message() << "lobes " << lobes << ", " << bits << " bits");
        // Null pointers first, whatever else is wrong.
        Call all{lobes, bits};
        all.unmarked = true;
        all.size = {0, -1};
        all.srcStepChange = 1;
        all.offset = {-1, 99};
        all.border = 0x10F;
        for (int which = 0; which < 4; ++which) {
          Call call = all;
          call.nullSource = which == 0;
          call.nullDestination = which == 1;
          call.nullSpec = which == 2;
          call.nullBuffer = which == 3;
          expectRefused(call, ippStsNullPtrErr);
        }
        // A width or height of 0 before the mark.
        Call empty = all;
        expectRefused(empty, ippStsNoOperation);
        empty.size = {5, 0};
        expectRefused(empty, ippStsNoOperation);
        // The mark before a negative size.
        Call unmarked = all;
        unmarked.size = {-1, 5};
        expectRefused(unmarked, ippStsContextMatchErr);
        // A negative size before the steps.
        Call negative = unmarked;
        negative.unmarked = false;
        expectRefused(negative, ippStsSizeErr);
        negative.size = {3, -2};
        expectRefused(negative, ippStsSizeErr);
        // An odd step (16 bits only) before the offset.
        Call odd = negative;
        odd.size = {3, 2};
        if (bits == 16) {
          expectRefused(odd, ippStsStepErr);
          odd.srcStepChange = 0;
          odd.dstStepChange = -1;
          expectRefused(odd, ippStsStepErr);
        }
        odd.srcStepChange = odd.dstStepChange = bits == 8 ? 1 : 0;  // odd steps are fine at 8 bits
        // The offset before the border word; an offset equal to the width is outside.
        for (IppiPoint outside : {IppiPoint{-1, 0}, IppiPoint{0, -1}, IppiPoint{8, 0}, IppiPoint{0, 6}}) {
          Call call = odd;
          call.offset = outside;
          expectRefused(call, ippStsOutOfRangeErr);
        }
        // Bit 3 and bits 8 and up are invalid, before the type is judged.
        for (uint32_t invalid : {0x8u, 0x100u, 0x80000001u, 0xF7u | 0x8u}) {
          Call call = odd;
          call.offset = {0, 0};
          call.border = invalid;
          expectRefused(call, ippStsBorderErr);
        }
        for (uint32_t type : {0u, 2u, 3u, 4u, 5u, 7u, 0xF0u}) {
          Call call = odd;
          call.offset = {0, 0};
          call.border = type;
          expectRefused(call, ippStsNotSupportedModeErr);
        }
      }
  });
}

TEST(ResizeStatus, AClampedRegionWarnsAndAFittingOneDoesNot) {
  for (int lobes : {kLinear, 3}) {
    SpecBlock block({12, 10}, {8, 6}, lobes);
    const resizetest::SourceWorld source(12, 10, 8, 4, 1);
    struct Case {
      IppiPoint offset;
      IppiSize size;
      IppStatus status;
    };
    for (const Case& c : {Case{{0, 0}, {8, 6}, ippStsNoErr}, Case{{7, 5}, {1, 1}, ippStsNoErr},
                          Case{{7, 0}, {2, 6}, ippStsSizeWrn}, Case{{0, 1}, {8, 6}, ippStsSizeWrn},
                          Case{{0, 0}, {9, 6}, ippStsSizeWrn}, Case{{3, 3}, {1000, 1000}, ippStsSizeWrn}}) {
      const resizetest::RegionRun run = resizetest::runRegion(source, block.spec(), lobes, 8, c.offset, c.size, 1);
      EXPECT_EQ(run.status, c.status) << c.offset.x << "," << c.offset.y << " " << c.size.width << "x" << c.size.height;
      EXPECT_TRUE(run.surroundingsIntact);
    }
  }
}

}  // namespace
