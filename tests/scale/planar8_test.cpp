// imageLibScalePlanar8: each mode against the primitive or the scaler that the mode names.

#include <gtest/gtest.h>

#include <memory>

#include "platform/scaler.h"
#include "qvimage/QVILResize.h"
#include "qvimage/ippi.h"
#include "scale/scale_support.h"
#include "support/log_capture.h"

namespace {

using scaletest::Image;

// The square-pixel primitive on the whole images with the given flag.
std::vector<int> squarePixel(Image& src, int dstW, int dstH, uint32_t flag) {
  Image dst(dstW, dstH, 1, 8);
  const IppiRect s{0, 0, src.width(), src.height()}, d{0, 0, dstW, dstH};
  int size = 0;
  ippiResizeGetBufSize(s, d, 1, flag, &size);
  std::unique_ptr<uint8_t[]> buffer(new uint8_t[size]);
  ippiResizeSqrPixel_8u_C1R(static_cast<const Ipp8u*>(src.buffer()->data), {src.width(), src.height()},
                            static_cast<int>(src.buffer()->rowBytes), s, static_cast<Ipp8u*>(dst.buffer()->data),
                            static_cast<int>(dst.buffer()->rowBytes), d, double(dstW) / src.width(),
                            double(dstH) / src.height(), 0, 0, flag, buffer.get());
  return dst.samples();
}

std::vector<int> planar8(Image& src, int dstW, int dstH, int32_t mode) {
  Image dst(dstW, dstH, 1, 8);
  qvtest::LogCapture log;
  EXPECT_TRUE(QVILResize::sharedInstance()->imageLibScalePlanar8(src.buffer(), dst.buffer(), mode));
  EXPECT_TRUE(log.lines().empty());
  EXPECT_EQ(dst.padding(), std::vector<uint8_t>(dst.padding().size(), 0xA5));
  return dst.samples();
}

TEST(ScalePlanar8, ModesZeroToFourUseTheSquarePixelFilters) {
  Image src(37, 23, 1, 8);
  src.fillRandom(1);
  const uint32_t flags[] = {IPPI_INTER_NN, IPPI_INTER_LINEAR, IPPI_INTER_CUBIC, IPPI_INTER_SUPER, IPPI_INTER_LANCZOS};
  for (int mode = 0; mode <= 4; ++mode)
    for (auto [w, h] : {std::pair{15, 11}, std::pair{80, 50}, std::pair{37, 23}}) {
      SCOPED_TRACE(testing::Message() << "mode " << mode << " to " << w << "x" << h);
      EXPECT_EQ(planar8(src, w, h, mode), squarePixel(src, w, h, flags[mode]));
    }
}

TEST(ScalePlanar8, EveryOtherModeIsNearest) {
  Image src(37, 23, 1, 8);
  src.fillRandom(2);
  for (int32_t mode : {7, 8, 9, 10, 11, -1, 1000})
    EXPECT_EQ(planar8(src, 20, 30, mode), squarePixel(src, 20, 30, IPPI_INTER_NN)) << mode;
}

TEST(ScalePlanar8, ModesFiveAndSixUseTheLibraryScaler) {
  Image src(37, 23, 1, 8);
  src.fillRandom(3);
  for (auto [mode, flags] : {std::pair{5, 40u}, std::pair{6, 8u}}) {
    Image expected(20, 13, 1, 8);
    qv::platform::scalePlanar8(src.buffer(), expected.buffer(), nullptr, flags);
    EXPECT_EQ(planar8(src, 20, 13, mode), expected.samples()) << mode;
  }
  EXPECT_NE(planar8(src, 20, 13, 5), planar8(src, 20, 13, 6));
}

// No shortcut for equal sizes: the filters run, and at factor 1 each gives the source back.
TEST(ScalePlanar8, EqualSizesStillFilter) {
  Image src(16, 9, 1, 8);
  src.fillRandom(4);
  for (int mode = 0; mode <= 11; ++mode) EXPECT_EQ(planar8(src, 16, 9, mode), src.samples()) << mode;
}

// Super cannot enlarge: the primitive refuses, nothing is written, and the answer is still YES.
TEST(ScalePlanar8, FailuresAreNotReported) {
  Image src(8, 8, 1, 8);
  src.fillRandom(5);
  Image dst(16, 16, 1, 8);
  dst.fill(9);
  qvtest::LogCapture log;
  EXPECT_TRUE(QVILResize::sharedInstance()->imageLibScalePlanar8(src.buffer(), dst.buffer(), QVILResizeSuper));
  EXPECT_TRUE(log.lines().empty());
  EXPECT_EQ(dst.samples(), std::vector<int>(256, 9));
}

}  // namespace
