// QVILResize flip, flop and mirror: the region from the destination, the quiet success for
// other depths, and the log line of a refused mirror.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "geometry/mirror_reference.h"
#include "qvimage/QVILResize.h"
#include "qvimage/qvimage.h"
#include "support/images.h"
#include "support/log_capture.h"
#include "support/tiers.h"

namespace {

using qvtest::TestImage;

const std::string kPrefix = "QVImageLib mirror operation failed with error: ";

TEST(MirrorPublic, SharedInstanceIsMadeOnce) {
  QVILResize* first = QVILResize::sharedInstance();
  ASSERT_NE(first, nullptr);
  EXPECT_EQ(QVILResize::sharedInstance(), first);
}

TEST(MirrorPublic, FlipFlopAndMirrorOnEveryDepthAndTier) {
  QVILResize* resize = QVILResize::sharedInstance();
  for (uint64_t bits : {8u, 16u})
    for (int operation = 0; operation < 5; ++operation) {
      // 0 flip, 1 flop, 2..4 mirror over axis 0..2.
      const int axis = operation < 2 ? operation : operation - 2;
      SCOPED_TRACE(testing::Message() << bits << " bits, operation " << operation);
      const int pixelBytes = static_cast<int>(bits) / 2;
      qvtest::expectSameOnEveryTier([&] {
        TestImage src(13, 7, pixelBytes, 20, 4);
        TestImage dst(13, 7, pixelBytes, 8, 0);
        src.fillRandom(static_cast<uint32_t>(operation * 31 + bits));
        vImage_Buffer from = src.buffer(), to = dst.buffer();
        qvtest::LogCapture log;
        bool answer = false;
        if (operation == 0) answer = resize->imageLibFlipRGBA(&from, &to, bits);
        if (operation == 1) answer = resize->imageLibFlopRGBA(&from, &to, bits);
        if (operation >= 2) answer = resize->imageLibMirrorRGBA(&from, &to, bits, axis);
        EXPECT_TRUE(answer);
        EXPECT_TRUE(log.lines().empty());
        EXPECT_EQ(dst.pixels(), qvtest::mirroredPixels(src.pixels(), 13, 7, pixelBytes, axis));
        EXPECT_TRUE(dst.surroundingsIntact());
        return dst.pixels();
      });
    }
}

// The source's own width and height are not read: only the destination's region is mirrored.
TEST(MirrorPublic, RegionComesFromTheDestination) {
  TestImage src(10, 6, 4);
  TestImage dst(4, 3, 4);
  src.fillRandom(5);
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  ASSERT_TRUE(QVILResize::sharedInstance()->imageLibFlopRGBA(&from, &to, 8));
  for (int y = 0; y < 3; ++y)
    for (int x = 0; x < 4; ++x)
      for (int c = 0; c < 4; ++c) EXPECT_EQ(dst.row(y)[x * 4 + c], src.row(y)[(3 - x) * 4 + c]);
  EXPECT_TRUE(dst.surroundingsIntact());
}

TEST(MirrorPublic, SameBufferMirrorsInPlace) {
  for (uint64_t bits : {8u, 16u})
    for (int axis : {0, 1, 2})
      for (int width : {4, 5})
        for (int height : {6, 7}) {
          const int pixelBytes = static_cast<int>(bits) / 2;
          TestImage image(width, height, pixelBytes, 12, 0);
          image.fillRandom(static_cast<uint32_t>(width * height * axis + bits));
          const std::vector<uint8_t> before = image.pixels();
          vImage_Buffer buffer = image.buffer();
          EXPECT_TRUE(QVILResize::sharedInstance()->imageLibMirrorRGBA(&buffer, &buffer, bits, axis));
          EXPECT_EQ(image.pixels(), qvtest::mirroredPixels(before, width, height, pixelBytes, axis));
        }
}

TEST(MirrorPublic, OtherDepthsSucceedQuietlyAndWriteNothing) {
  for (uint64_t bits : {0u, 1u, 12u, 32u, 64u}) {
    TestImage src(4, 4, 4), dst(4, 4, 4);
    src.fillRandom(1);
    dst.fillRandom(2);
    const std::vector<uint8_t> before = dst.allBytes();
    vImage_Buffer from = src.buffer(), to = dst.buffer();
    qvtest::LogCapture log;
    // Even an axis that the primitive would refuse: no primitive is called.
    EXPECT_TRUE(QVILResize::sharedInstance()->imageLibMirrorRGBA(&from, &to, bits, 3));
    EXPECT_TRUE(QVILResize::sharedInstance()->imageLibFlipRGBA(&from, &to, bits));
    EXPECT_EQ(dst.allBytes(), before);
    EXPECT_TRUE(log.lines().empty());
  }
}

// One refused call: false, one log line with the status text, destination untouched.
void expectRefusedWithLog(vImage_Buffer from, vImage_Buffer to, uint64_t bits, int axis, IppStatus status,
                          const std::vector<uint8_t>& destinationBytes, const TestImage& destination) {
  qvtest::LogCapture log;
  EXPECT_FALSE(QVILResize::sharedInstance()->imageLibMirrorRGBA(&from, &to, bits, axis));
  ASSERT_EQ(log.lines().size(), 1u);
  EXPECT_EQ(log.lines()[0], kPrefix + ippGetStatusString(status));
  EXPECT_EQ(destination.allBytes(), destinationBytes);
}

TEST(MirrorPublic, RefusedMirrorsAreLoggedAndWriteNothing) {
  for (uint64_t bits : {8u, 16u}) {
    const int pixelBytes = static_cast<int>(bits) / 2;
    TestImage src(5, 5, pixelBytes), dst(5, 5, pixelBytes);
    src.fillRandom(3);
    dst.fillRandom(4);
    const std::vector<uint8_t> before = dst.allBytes();
    vImage_Buffer from = src.buffer(), to = dst.buffer();
    vImage_Buffer nullFrom = from, nullTo = to;
    nullFrom.data = nullptr;
    nullTo.data = nullptr;
    expectRefusedWithLog(nullFrom, to, bits, 0, ippStsNullPtrErr, before, dst);
    expectRefusedWithLog(from, nullTo, bits, 0, ippStsNullPtrErr, before, dst);
    vImage_Buffer empty = to;
    empty.width = 0;
    expectRefusedWithLog(from, empty, bits, 1, ippStsSizeErr, before, dst);
    // A width of 2^32 is cut to 0 on the way to the primitive.
    vImage_Buffer wrapped = to;
    wrapped.width = 0x100000000ull;
    expectRefusedWithLog(from, wrapped, bits, 1, ippStsSizeErr, before, dst);
    expectRefusedWithLog(from, to, bits, 3, ippStsMirrorFlipErr, before, dst);
    expectRefusedWithLog(from, to, bits, -1, ippStsMirrorFlipErr, before, dst);
  }
}

TEST(MirrorPublic, OneRowIsRefusedByFlipAndAcceptedByFlop) {
  QVILResize* resize = QVILResize::sharedInstance();
  TestImage src(6, 1, 4), dst(6, 1, 4);
  src.fillRandom(8);
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  {
    qvtest::LogCapture log;
    EXPECT_FALSE(resize->imageLibFlipRGBA(&from, &to, 8));
    ASSERT_EQ(log.lines().size(), 1u);
    EXPECT_EQ(log.lines()[0].rfind(kPrefix, 0), 0u);
    EXPECT_EQ(log.lines()[0], kPrefix + ippGetStatusString(ippStsSizeErr));
    EXPECT_FALSE(resize->imageLibMirrorRGBA(&from, &to, 8, MirrorAxisBoth));
  }
  EXPECT_TRUE(resize->imageLibFlopRGBA(&from, &to, 8));
  EXPECT_EQ(dst.pixels(), qvtest::mirroredPixels(src.pixels(), 6, 1, 4, 1));
}

TEST(MirrorPublic, OneColumnIsRefusedByFlopAndAcceptedByFlip) {
  QVILResize* resize = QVILResize::sharedInstance();
  TestImage src(1, 6, 8), dst(1, 6, 8);
  src.fillRandom(9);
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  {
    qvtest::LogCapture log;
    EXPECT_FALSE(resize->imageLibFlopRGBA(&from, &to, 16));
    EXPECT_FALSE(resize->imageLibMirrorRGBA(&from, &to, 16, MirrorAxisBoth));
    ASSERT_EQ(log.lines().size(), 2u);
    EXPECT_EQ(log.lines()[0], kPrefix + ippGetStatusString(ippStsSizeErr));
  }
  EXPECT_TRUE(resize->imageLibFlipRGBA(&from, &to, 16));
  EXPECT_EQ(dst.pixels(), qvtest::mirroredPixels(src.pixels(), 1, 6, 8, 0));
}

TEST(MirrorPublic, OneByOneIsRefusedOnEveryAxis) {
  TestImage src(1, 1, 4), dst(1, 1, 4);
  src.fillRandom(10);
  dst.fillRandom(11);
  const std::vector<uint8_t> before = dst.allBytes();
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  for (int axis : {0, 1, 2}) expectRefusedWithLog(from, to, 8, axis, ippStsSizeErr, before, dst);
}

TEST(MirrorPublic, BothAxesEqualAHalfTurn) {
  TestImage src(9, 6, 4, 4), dst(9, 6, 4);
  src.fillRandom(12);
  vImage_Buffer from = src.buffer(), to = dst.buffer();
  ASSERT_TRUE(QVILResize::sharedInstance()->imageLibMirrorRGBA(&from, &to, 8, MirrorAxisBoth));
  EXPECT_EQ(dst.pixels(), qvtest::turnedHalfway(src.pixels(), 9, 6, 4));
}

}  // namespace
