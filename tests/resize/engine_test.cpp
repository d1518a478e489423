// The four engines of QVILResize and their two dispatchers: the same bytes in 1, 2, 3 and 7
// strips as in one call, the strip count of the option word, the allocation table, the failure
// table with its log lines, and the depths they accept.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "classes/strips.h"
#include "qvimage/QVILResize.h"
#include "qvimage/qvimage.h"
#include "resize/allocation_log.h"
#include "resize/resize_reference.h"
#include "support/images.h"
#include "support/log_capture.h"
#include "support/played_processor_counts.h"

namespace {

using qvtest::PlayedProcessorCounts;

using resizetest::AllocationLog;

constexpr uint32_t option(uint32_t mode, uint32_t limit) { return mode | (limit << 16); }

enum class Kind { Linear, Lanczos };

struct EngineCase {
  Kind kind;
  int bits;
  const char* name;
};

const EngineCase kEngines[] = {{Kind::Linear, 8, "linear 8"},
                               {Kind::Linear, 16, "linear 16"},
                               {Kind::Lanczos, 8, "Lanczos 8"},
                               {Kind::Lanczos, 16, "Lanczos 16"}};

bool scale(const EngineCase& e, const vImage_Buffer* src, const vImage_Buffer* dst, uint32_t options) {
  QVILResize* resize = QVILResize::sharedInstance();
  if (e.kind == Kind::Linear)
    return e.bits == 8 ? resize->imageLibScaleLinearRGBA8888(src, dst, options)
                       : resize->imageLibScaleLinearRGBA16(src, dst, options);
  return e.bits == 8 ? resize->imageLibScaleLanczosRGBA8888(src, dst, options)
                     : resize->imageLibScaleLanczosRGBA16(src, dst, options);
}

class ResizeEngines : public ::testing::Test {
 protected:
  void SetUp() override {
    QVILResize::sharedInstance();
    play(8, 4);
  }
  void TearDown() override { PlayedProcessorCounts::stop(); }
  static void play(uint32_t logical, uint32_t physical) { PlayedProcessorCounts::play(logical, physical); }
};

// Source and destination images of one case, with padded rows and canaries.
struct Images {
  qvtest::TestImage source, destination;
  vImage_Buffer src, dst;
  Images(IppiSize from, IppiSize to, int bits, uint32_t seed)
      : source(from.width, from.height, bits / 2, 12, 4), destination(to.width, to.height, bits / 2, 20, 8) {
    source.fillRandom(seed);
    destination.fill(0x77);
    src = source.buffer();
    dst = destination.buffer();
  }
};

std::vector<uint8_t> scaled(const EngineCase& e, IppiSize from, IppiSize to, uint32_t options) {
  Images images(from, to, e.bits, 17);
  AllocationLog log;
  EXPECT_TRUE(scale(e, &images.src, &images.dst, options));
  EXPECT_TRUE(images.destination.surroundingsIntact());
  return images.destination.pixels();
}

TEST_F(ResizeEngines, StripsGiveTheSameBytesAsOneCall) {
  const std::pair<IppiSize, IppiSize> jobs[] = {
      {{203, 157}, {97, 131}}, {{61, 47}, {150, 113}}, {{40, 41}, {40, 41}}, {{202, 158}, {101, 79}}};
  for (const EngineCase& e : kEngines)
    for (const auto& [from, to] : jobs) {
      SCOPED_TRACE(e.name);
      const std::vector<uint8_t> single = scaled(e, from, to, 0);
      for (uint32_t strips : {2u, 3u, 7u}) EXPECT_EQ(scaled(e, from, to, option(1, strips)), single) << strips;
      // And the single call is the resize primitive's own image.
      const int lobes = e.kind == Kind::Linear ? 1 : 3;
      Images images(from, to, e.bits, 17);
      resizetest::SourceWorld world(from.width, from.height, e.bits, 3, 1);
      for (int y = 0; y < from.height; ++y)
        for (int x = 0; x < from.width; ++x)
          for (int c = 0; c < 4; ++c) {
            const uint8_t* p = images.source.row(y) + (x * 4 + c) * (e.bits / 8);
            world.setSample(y, x, c, e.bits == 8 ? p[0] : static_cast<uint32_t>(p[0] | p[1] << 8));
          }
      const std::vector<uint32_t> expected = resizetest::referenceRegion(
          world, resizetest::referenceFilters(from, to, lobes), {0, 0}, to, ippBorderRepl, e.bits);
      std::vector<uint8_t> expectedBytes;
      for (uint32_t s : expected) {
        expectedBytes.push_back(static_cast<uint8_t>(s));
        if (e.bits == 16) expectedBytes.push_back(static_cast<uint8_t>(s >> 8));
      }
      EXPECT_EQ(single, expectedBytes);
    }
}

TEST_F(ResizeEngines, ADestinationWithFewerRowsThanStrips) {
  for (const EngineCase& e : kEngines) {
    SCOPED_TRACE(e.name);
    const std::vector<uint8_t> single = scaled(e, {30, 20}, {45, 3}, 0);
    EXPECT_EQ(scaled(e, {30, 20}, {45, 3}, option(1, 7)), single);
    EXPECT_EQ(scaled(e, {30, 20}, {45, 1}, option(1, 7)), scaled(e, {30, 20}, {45, 1}, 0));
  }
}

// The sizes the queries give for a job: ResizeSpec, init buffer, scratch of the whole image.
struct JobSizes {
  size_t spec, init, whole;
};

JobSizes sizesOf(Kind kind, IppiSize from, IppiSize to) {
  const int lobes = kind == Kind::Linear ? 1 : 3;
  const resizetest::SpecSizes sizes = resizetest::referenceSpecSizes(from, to, kind == Kind::Linear ? 2 : 16);
  return {static_cast<size_t>(sizes.spec), static_cast<size_t>(sizes.init),
          static_cast<size_t>(resizetest::referenceBufferSize(to, to, 4, lobes))};
}

TEST_F(ResizeEngines, AllocationTableOnTheCallingThread) {
  const IppiSize from{90, 70}, to{50, 110};
  for (const EngineCase& e : kEngines) {
    SCOPED_TRACE(e.name);
    const JobSizes sizes = sizesOf(e.kind, from, to);
    // The 16-bit allocations take the byte count as a count of 16-bit elements.
    const bool linear = e.kind == Kind::Linear, wide = e.bits == 16;
    const size_t init = linear && wide ? 2 * sizes.init : sizes.init;
    const size_t spec = wide ? 2 * sizes.spec : sizes.spec;
    Images images(from, to, e.bits, 5);
    AllocationLog log;
    EXPECT_TRUE(scale(e, &images.src, &images.dst, 0));
    EXPECT_EQ(log.requests(), (std::vector<size_t>{init, spec, sizes.whole}));
    // The linear engines keep their scratch block; the Lanczos engines give everything back.
    EXPECT_EQ(log.held(), linear ? 1u : 0u);
  }
}

TEST_F(ResizeEngines, AllocationTableOfStrips) {
  const IppiSize from{90, 70}, to{50, 110};
  for (const EngineCase& e : kEngines)
    for (uint32_t strips : {2u, 3u, 7u}) {
      SCOPED_TRACE(testing::Message() << e.name << ", " << strips << " strips");
      const int lobes = e.kind == Kind::Linear ? 1 : 3;
      const int rows = to.height / static_cast<int>(strips), last = rows + to.height % static_cast<int>(strips);
      const size_t slice = static_cast<size_t>(resizetest::referenceBufferSize(to, {to.width, rows}, 4, lobes));
      const size_t lastSlice = static_cast<size_t>(resizetest::referenceBufferSize(to, {to.width, last}, 4, lobes));
      Images images(from, to, e.bits, 5);
      AllocationLog log;
      EXPECT_TRUE(scale(e, &images.src, &images.dst, option(1, strips)));
      ASSERT_EQ(log.requests().size(), 3u);
      EXPECT_EQ(log.requests()[2], (strips - 1) * slice + lastSlice);
      EXPECT_EQ(log.held(), 0u);
    }
}

TEST_F(ResizeEngines, TheOptionWordChoosesTheStripCount) {
  const IppiSize from{90, 70}, to{50, 100};
  const EngineCase& e = kEngines[2];
  struct Case {
    uint32_t options, strips;
    int reads;
  };
  // 8 logical and 4 physical processors.
  for (const Case& c :
       {Case{option(1, 0), 8, 1}, Case{option(2, 0), 4, 1}, Case{option(1, 3), 3, 1}, Case{option(2, 16), 4, 1},
        Case{option(9, 0), 8, 1}, Case{option(0, 5), 1, 0}, Case{option(1, 1), 1, 0}, Case{option(2, 1), 1, 0}}) {
    SCOPED_TRACE(testing::Message() << "option word " << c.options);
    play(8, 4);
    const int rows = to.height / static_cast<int>(c.strips), last = rows + to.height % static_cast<int>(c.strips);
    const size_t expected =
        c.strips == 1 ? static_cast<size_t>(resizetest::referenceBufferSize(to, to, 4, 3))
                      : (c.strips - 1) * static_cast<size_t>(resizetest::referenceBufferSize(to, {50, rows}, 4, 3)) +
                            static_cast<size_t>(resizetest::referenceBufferSize(to, {50, last}, 4, 3));
    Images images(from, to, e.bits, 5);
    AllocationLog log;
    EXPECT_TRUE(scale(e, &images.src, &images.dst, c.options));
    ASSERT_EQ(log.requests().size(), 3u);
    EXPECT_EQ(log.requests()[2], expected);
    // Mode 0 and limit 1 do not ask for the processor count.
    EXPECT_EQ(PlayedProcessorCounts::reads(), c.reads);
  }
  // Fewer than two processors, or a failed read (0), run on the calling thread.
  for (uint32_t processors : {0u, 1u}) {
    play(processors, processors);
    Images images(from, to, e.bits, 5);
    AllocationLog log;
    EXPECT_TRUE(scale(e, &images.src, &images.dst, option(1, 0)));
    ASSERT_EQ(log.requests().size(), 3u);
    EXPECT_EQ(log.requests()[2], static_cast<size_t>(resizetest::referenceBufferSize(to, to, 4, 3)));
  }
}

std::string statusText(IppStatus status) { return ippGetStatusString(status); }

// A refused job: the answer, the one log line (or none), and the destination as it was.
void expectFailure(const EngineCase& e, IppiSize from, IppiSize to, uint32_t options, int refusedRequest, bool answer,
                   const std::string& line) {
  Images images(from, to, e.bits, 9);
  const std::vector<uint8_t> before = images.destination.allBytes();
  qvtest::LogCapture capture;
  AllocationLog log;
  log.refuseRequest(refusedRequest);
  EXPECT_EQ(scale(e, &images.src, &images.dst, options), answer);
  if (line.empty())
    EXPECT_TRUE(capture.lines().empty());
  else
    EXPECT_EQ(capture.lines(), std::vector<std::string>{line});
  EXPECT_EQ(images.destination.allBytes(), before);
  EXPECT_EQ(log.held(), 0u);
}

TEST_F(ResizeEngines, FailureTableAndLogLines) {
  const std::string sizeErr = statusText(ippStsSizeErr), nullErr = statusText(ippStsNullPtrErr);
  for (const EngineCase& e : kEngines) {
    SCOPED_TRACE(e.name);
    const bool linear = e.kind == Kind::Linear;
    const std::string sizeLine = linear ? "Scale initialization error: " : "Scale get size error: ";
    // The size query refuses: a source under 2 by 2 (linear) or 4 by 4 (Lanczos). Nothing allocated.
    expectFailure(e, {1, 100}, {50, 50}, 0, -1, false, sizeLine + sizeErr + " srcSize: {1, 100} destSize: {50, 50}");
    if (!linear)
      expectFailure(e, {3, 3}, {9, 8}, option(1, 3), -1, false,
                    sizeLine + sizeErr + " srcSize: {3, 3} destSize: {9, 8}");
    // A destination width of 0 is no operation, which counts as a failure.
    expectFailure(e, {10, 10}, {0, 8}, 0, -1, false,
                  sizeLine + statusText(ippStsNoOperation) + " srcSize: {10, 10} destSize: {0, 8}");
    // The init refuses: a Lanczos source under 6 by 6; a ResizeSpec that could not be allocated.
    if (!linear)
      expectFailure(e, {5, 5}, {9, 8}, 0, -1, false,
                    "Scale initialization error: " + sizeErr + " srcSize: {5, 5} destSize: {9, 8}");
    const std::string initNull = linear
                                     ? "Scale initialization error: " + nullErr
                                     : "Scale initialization error: " + nullErr + " srcSize: {20, 10} destSize: {9, 8}";
    expectFailure(e, {20, 10}, {9, 8}, 0, 1, false, initNull);
    if (!linear) expectFailure(e, {20, 10}, {9, 8}, 0, 0, false, initNull);  // the init buffer
    // The scratch block: on the calling thread a failure answers false, for strips true; no line.
    expectFailure(e, {20, 10}, {9, 8}, 0, 2, false, "");
    expectFailure(e, {20, 10}, {9, 8}, option(1, 4), 2, true, "");
  }
}

TEST_F(ResizeEngines, TheStatusOfTheResizeItselfIsDropped) {
  // An odd row length is refused by the 16-bit resize; the engine answers true all the same.
  for (const EngineCase& e : {kEngines[1], kEngines[3]})
    for (uint32_t options : {0u, option(1, 2)}) {
      Images images({20, 10}, {9, 8}, 16, 3);
      images.src.rowBytes += 1;
      const std::vector<uint8_t> before = images.destination.allBytes();
      qvtest::LogCapture capture;
      AllocationLog log;
      EXPECT_TRUE(scale(e, &images.src, &images.dst, options));
      EXPECT_TRUE(capture.lines().empty());
      EXPECT_EQ(images.destination.allBytes(), before);
    }
}

TEST_F(ResizeEngines, SizesAreTheLow32BitsAndTheLogShowsTheBuffers) {
  const EngineCase& e = kEngines[0];
  Images images({10, 10}, {9, 8}, 8, 3);
  images.src.width = (uint64_t{1} << 32) + 1;  // reads as a width of 1
  qvtest::LogCapture capture;
  EXPECT_FALSE(scale(e, &images.src, &images.dst, 0));
  EXPECT_EQ(capture.lines(), std::vector<std::string>{"Scale initialization error: " + statusText(ippStsSizeErr) +
                                                      " srcSize: {4294967297, 10} destSize: {9, 8}"});
}

TEST_F(ResizeEngines, DispatchersTakeEightAndSixteenBitsOnly) {
  QVILResize* resize = QVILResize::sharedInstance();
  for (uint64_t bits : {uint64_t{8}, uint64_t{16}}) {
    Images images({20, 10}, {9, 8}, static_cast<int>(bits), 3);
    Images lanczos({20, 10}, {9, 8}, static_cast<int>(bits), 3);
    AllocationLog log;
    EXPECT_TRUE(resize->imageLibScaleLinearRGBA(&images.src, &images.dst, 0, bits));
    EXPECT_TRUE(resize->imageLibScaleLanczosRGBA(&lanczos.src, &lanczos.dst, 0, bits));
    // The ResizeSpec was sized for the depth: the 16-bit linear engine asks twice the room.
    const resizetest::SpecSizes sizes = resizetest::referenceSpecSizes({20, 10}, {9, 8}, 2);
    EXPECT_EQ(log.requests()[1], static_cast<size_t>(sizes.spec) * (bits / 8));
    EXPECT_NE(images.destination.pixels(), std::vector<uint8_t>(images.destination.pixels().size(), 0x77));
  }
  for (uint64_t bits : {uint64_t{0}, uint64_t{1}, uint64_t{12}, uint64_t{32}, uint64_t{0x100000008}}) {
    Images images({20, 10}, {9, 8}, 8, 3);
    const std::vector<uint8_t> before = images.destination.allBytes();
    qvtest::LogCapture capture;
    AllocationLog log;
    EXPECT_FALSE(resize->imageLibScaleLinearRGBA(&images.src, &images.dst, 0, bits));
    EXPECT_FALSE(resize->imageLibScaleLanczosRGBA(&images.src, &images.dst, 0, bits));
    EXPECT_TRUE(capture.lines().empty());
    EXPECT_TRUE(log.requests().empty());
    EXPECT_EQ(images.destination.allBytes(), before);
  }
}

}  // namespace
