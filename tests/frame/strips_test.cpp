// The strip decomposition: processor counts, the split decision, strip heights, and copies that
// are byte-exact however they are cut.

#include <gtest/gtest.h>

#include <atomic>
#include <cstring>
#include <mutex>
#include <set>
#include <thread>

#include "classes/strips.h"
#include "qvimage/QVILConversion.h"
#include "qvimage/QVILSharedInternal.h"
#include "support/images.h"
#include "support/played_processor_counts.h"

namespace {

using qvtest::PlayedProcessorCounts;

class Strips : public ::testing::Test {
 protected:
  void SetUp() override { play(8, 4); }
  void TearDown() override { PlayedProcessorCounts::stop(); }
  static void play(uint32_t logical, uint32_t physical) { PlayedProcessorCounts::play(logical, physical); }

  static uint32_t stripCount(uint32_t options) {
    return qv::frame::planStrips(qv::frame::processorCountForOptions(options), options, 1000).count;
  }
};

constexpr uint32_t option(uint32_t mode, uint32_t limit) { return mode | (limit << 16); }

TEST_F(Strips, CountsFor8LogicalAnd4PhysicalProcessors) {
  EXPECT_EQ(stripCount(1), 8u);
  EXPECT_EQ(stripCount(2), 4u);
  EXPECT_EQ(stripCount(option(1, 3)), 3u);
  EXPECT_EQ(stripCount(option(1, 16)), 8u);
  EXPECT_EQ(stripCount(option(2, 16)), 4u);
  EXPECT_EQ(stripCount(option(7, 0)), 8u);  // any mode but 0 and 2 counts logical processors
}

TEST_F(Strips, HeightsGiveTheWholeRemainderToTheLastStrip) {
  const qv::frame::StripPlan plan = qv::frame::planStrips(4, 0, 1003);
  EXPECT_EQ(plan.count, 4u);
  EXPECT_EQ(plan.rows, 250u);
  EXPECT_EQ(plan.lastRows, 253u);
  const qv::frame::StripPlan small = qv::frame::planStrips(8, 0, 5);
  EXPECT_EQ(small.rows, 0u);
  EXPECT_EQ(small.lastRows, 5u);
}

TEST_F(Strips, ModeZeroNeverAsksForTheCount) {
  for (uint32_t limit : {0u, 1u, 2u, 16u, 0xFFFFu}) {
    EXPECT_EQ(qv::frame::processorCountForOptions(option(0, limit)), 1u);
    EXPECT_FALSE(qv::frame::copyShouldSplit(4000, 4000, option(0, limit), 1));
  }
  EXPECT_EQ(PlayedProcessorCounts::reads(), 0);
}

TEST_F(Strips, LimitOneNeverAsksForTheCount) {
  for (uint32_t mode : {1u, 2u, 3u, 0xFFFFu}) EXPECT_EQ(qv::frame::processorCountForOptions(option(mode, 1)), 1u);
  EXPECT_EQ(PlayedProcessorCounts::reads(), 0);
}

TEST_F(Strips, CountsAreReadOnceAndKept) {
  qv::frame::processorCountForOptions(1);
  qv::frame::processorCountForOptions(1);
  qv::frame::processorCountForOptions(2);
  qv::frame::processorCountForOptions(2);
  EXPECT_EQ(PlayedProcessorCounts::logicalReads, 1);
  EXPECT_EQ(PlayedProcessorCounts::physicalReads, 1);
}

TEST_F(Strips, CopySplitsOnlyAbove500InBothDirections) {
  EXPECT_FALSE(qv::frame::copyShouldSplit(500, 10000, 1, 8));
  EXPECT_FALSE(qv::frame::copyShouldSplit(10000, 500, 1, 8));
  EXPECT_TRUE(qv::frame::copyShouldSplit(501, 501, 1, 2));
  EXPECT_FALSE(qv::frame::copyShouldSplit(501, 501, 1, 1));
  EXPECT_FALSE(qv::frame::copyShouldSplit(501, 501, 0, 8));
  EXPECT_FALSE(qv::frame::copyShouldSplit(-5, 501, 1, 8));  // read as i32
  EXPECT_EQ(QVILSharedInternal::minimalDimensionsToUseMultithreading(), 500);
}

TEST_F(Strips, FailedCountReadGivesOneCallForTheLifeOfTheProcess) {
  play(0, 0);
  EXPECT_EQ(QVILSharedInternal::numberOfAvailableLogicalCPUs(), 0u);
  EXPECT_EQ(QVILSharedInternal::numberOfAvailablePhysicalCPUs(), 0u);
  PlayedProcessorCounts::logical = 8;  // the machine recovers, the cached 0 stays
  PlayedProcessorCounts::physical = 4;
  for (uint32_t options : {1u, 2u, option(1, 16)}) {
    const uint32_t processors = qv::frame::processorCountForOptions(options);
    EXPECT_EQ(processors, 0u);
    EXPECT_FALSE(qv::frame::copyShouldSplit(4000, 4000, options, processors));
  }
  EXPECT_EQ(PlayedProcessorCounts::logicalReads, 1);
  EXPECT_EQ(PlayedProcessorCounts::physicalReads, 1);
}

TEST_F(Strips, RunStripsCoversEveryRowOnce) {
  const qv::frame::StripPlan plan = qv::frame::planStrips(4, 0, 1003);
  std::vector<std::atomic<int>> visits(1003);
  auto body = [&](uint32_t first, uint32_t rows) {
    for (uint32_t r = first; r < first + rows; ++r) visits[r].fetch_add(1);
  };
  qv::frame::runStrips(plan, body);
  for (const auto& count : visits) EXPECT_EQ(count.load(), 1);
}

// Copies through the public operation must be byte-exact for every way the job is cut.
void expectExactCopy(int width, int height, uint32_t options, int bitsPerChannel, int padding) {
  const int bytesPerPixel = bitsPerChannel / 2;
  qvtest::TestImage source(width, height, bytesPerPixel, padding, 3);
  qvtest::TestImage destination(width, height, bytesPerPixel, padding + 16, 7);
  source.fillRandom(static_cast<uint32_t>(width * 31 + height + options));
  vImage_Buffer from = source.buffer();
  vImage_Buffer to = destination.buffer();
  ASSERT_TRUE(QVILConversion::sharedInstance()->imageLibCopyRGBA(&from, &to, options, bitsPerChannel));
  EXPECT_EQ(destination.pixels(), source.pixels());
  EXPECT_TRUE(destination.surroundingsIntact());
}

TEST_F(Strips, MultiStripCopiesAreByteExact) {
  for (uint32_t options : {0u, 1u, 2u, option(1, 3), option(1, 16), option(2, 16)}) {
    SCOPED_TRACE(options);
    expectExactCopy(501, 1003, options, 8, 12);
    expectExactCopy(509, 503, options, 16, 0);
    expectExactCopy(640, 7, options, 8, 4);
  }
}

TEST_F(Strips, StripsRunOnSeveralThreadsWhenSplit) {
  play(8, 4);
  const qv::frame::StripPlan plan = qv::frame::planStrips(8, 0, 800);
  std::mutex lock;
  std::set<std::thread::id> threads;
  std::atomic<int> strips{0};
  auto body = [&](uint32_t, uint32_t) {
    {
      std::lock_guard<std::mutex> guard(lock);
      threads.insert(std::this_thread::get_id());
    }
    strips.fetch_add(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(50));  // long enough for a pool thread to join
  };
  qv::frame::runStrips(plan, body);
  EXPECT_EQ(strips.load(), 8);
  if (std::thread::hardware_concurrency() >= 2) {
    EXPECT_GE(threads.size(), 2u);
  }
}

}  // namespace
