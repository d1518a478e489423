// The general scale operation, one test per row of its mode table, with the log lines captured
// through the handler; the forms that lead to it; the square-pixel front's failure line.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "platform/scaler.h"
#include "qvimage/QVILConversion.h"
#include "qvimage/QVILResize.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi.h"
#include "scale/kept_blocks.h"
#include "scale/scale_support.h"
#include "support/log_capture.h"

namespace {

using scaletest::Image;

QVILResize* resize() { return QVILResize::sharedInstance(); }

// The square-pixel primitive on the whole images with the given flag: what the front writes.
std::vector<int> squarePixel(Image& src, int dstW, int dstH, uint32_t flag, int bits) {
  Image dst(dstW, dstH, 4, bits);
  const IppiRect s{0, 0, src.width(), src.height()}, d{0, 0, dstW, dstH};
  int size = 0;
  ippiResizeGetBufSize(s, d, 4, flag, &size);
  std::unique_ptr<uint8_t[]> buffer(new uint8_t[size]);
  const double xf = double(dstW) / src.width(), yf = double(dstH) / src.height();
  const int srcStep = static_cast<int>(src.buffer()->rowBytes), dstStep = static_cast<int>(dst.buffer()->rowBytes);
  if (bits == 8)
    ippiResizeSqrPixel_8u_C4R(static_cast<const Ipp8u*>(src.buffer()->data), {src.width(), src.height()}, srcStep, s,
                              static_cast<Ipp8u*>(dst.buffer()->data), dstStep, d, xf, yf, 0, 0, flag, buffer.get());
  else
    ippiResizeSqrPixel_16u_C4R(static_cast<const Ipp16u*>(src.buffer()->data), {src.width(), src.height()}, srcStep, s,
                               static_cast<Ipp16u*>(dst.buffer()->data), dstStep, d, xf, yf, 0, 0, flag, buffer.get());
  return dst.samples();
}

struct Outcome {
  bool answer;
  std::vector<int> pixels;
  std::vector<std::string> lines;
};

Outcome scaleRGBA(Image& src, int dstW, int dstH, int32_t mode, int bits, uint32_t options = 0, int fill = 7) {
  Image dst(dstW, dstH, 4, bits);
  dst.fill(fill);
  qvtest::LogCapture log;
  const size_t held = scaletest::blocksHeld();
  const bool answer = resize()->imageLibScaleRGBA(src.buffer(), dst.buffer(), mode, options, bits);
  // Only the linear engine keeps a block (its scratch, on the calling thread).
  if (mode != QVILResizeLinear) {
    EXPECT_EQ(scaletest::blocksHeld(), held) << "mode " << mode;
  }
  EXPECT_EQ(dst.padding(), std::vector<uint8_t>(dst.padding().size(), 0xA5));
  return {answer, dst.samples(), log.lines()};
}

Image randomImage(int w, int h, int bits, uint32_t seed) {
  Image image(w, h, 4, bits);
  image.fillRandom(seed);
  return image;
}

std::string frontLine(IppStatus status, int sw, int sh, int dw, int dh) {
  return std::string("Scale initialization error: ") + ippGetStatusString(status) + " srcSize: {" + std::to_string(sw) +
         ", " + std::to_string(sh) + "} destSize: {" + std::to_string(dw) + ", " + std::to_string(dh) + "}";
}

const std::vector<std::string> kNoLines;

TEST(ScaleGeneral, EqualSizesCopyInEveryModeAndDepth) {
  for (int bits : {8, 16}) {
    Image src = randomImage(23, 17, bits, 1);
    for (int32_t mode = -1; mode <= 11; ++mode) {
      const Outcome o = scaleRGBA(src, 23, 17, mode, bits, 0x00020002);
      EXPECT_TRUE(o.answer);
      EXPECT_EQ(o.pixels, src.samples()) << mode;
      EXPECT_EQ(o.lines, kNoLines) << mode;
    }
  }
  // The copy refuses other depths with its own line; the general operation drops that answer.
  Image src = randomImage(5, 4, 8, 2);
  const Outcome o = scaleRGBA(src, 5, 4, QVILResizeLanczos, 32);
  EXPECT_TRUE(o.answer);
  ASSERT_EQ(o.lines.size(), 1u);
  EXPECT_NE(o.lines[0].find("unsupported bits per chanel: 32"), std::string::npos);
}

TEST(ScaleGeneral, NearestRunsTheSquarePixelFront) {
  for (int bits : {8, 16}) {
    Image src = randomImage(31, 22, bits, 3);
    const Outcome o = scaleRGBA(src, 47, 13, QVILResizeNearestNeighbor, bits);
    EXPECT_TRUE(o.answer);
    EXPECT_EQ(o.pixels, squarePixel(src, 47, 13, IPPI_INTER_NN, bits));
    EXPECT_EQ(o.lines, kNoLines);
  }
}

TEST(ScaleGeneral, LinearRunsTheEngineAndFallsBackToTheFront) {
  for (int bits : {8, 16}) {
    Image src = randomImage(31, 22, bits, 4);
    Image engine(47, 13, 4, bits);
    EXPECT_TRUE(resize()->imageLibScaleLinearRGBA(src.buffer(), engine.buffer(), 0, bits));
    const Outcome o = scaleRGBA(src, 47, 13, QVILResizeLinear, bits);
    EXPECT_TRUE(o.answer);
    EXPECT_EQ(o.pixels, engine.samples());
    EXPECT_EQ(o.lines, kNoLines);
    // A source one pixel wide: the engine refuses it with its line, the front resizes.
    Image thin = randomImage(1, 9, bits, 5);
    const Outcome f = scaleRGBA(thin, 4, 20, QVILResizeLinear, bits);
    EXPECT_TRUE(f.answer);
    EXPECT_EQ(f.pixels, squarePixel(thin, 4, 20, IPPI_INTER_LINEAR, bits));
    ASSERT_EQ(f.lines.size(), 1u);
    EXPECT_EQ(f.lines[0].rfind("Scale initialization error: ", 0), 0u) << f.lines[0];
  }
}

// The linear engine rounds once from f32, ties to even; the square-pixel linear filter of the
// fallback works in Q14 integers, half up: the two differ by one step at most.
TEST(ScaleGeneral, LinearEngineAndItsFallbackDifferByOneStepAtMost) {
  Image src = randomImage(53, 37, 8, 20);
  for (auto [w, h] : {std::pair{29, 20}, std::pair{100, 71}, std::pair{41, 60}}) {
    Image engine(w, h, 4, 8);
    EXPECT_TRUE(resize()->imageLibScaleLinearRGBA8888(src.buffer(), engine.buffer(), 0));
    const std::vector<int> front = squarePixel(src, w, h, IPPI_INTER_LINEAR, 8), fromEngine = engine.samples();
    int largest = 0, differing = 0;
    for (size_t i = 0; i < front.size(); ++i) {
      largest = std::max(largest, std::abs(front[i] - fromEngine[i]));
      differing += front[i] != fromEngine[i];
    }
    EXPECT_LE(largest, 1) << w << "x" << h;
    EXPECT_GT(differing, 0) << w << "x" << h;
  }
}

TEST(ScaleGeneral, CubicAndSuperRunTheFront) {
  for (int bits : {8, 16}) {
    Image src = randomImage(31, 22, bits, 6);
    const Outcome cubic = scaleRGBA(src, 47, 13, QVILResizeCubic, bits);
    EXPECT_TRUE(cubic.answer);
    EXPECT_EQ(cubic.pixels, squarePixel(src, 47, 13, IPPI_INTER_CUBIC, bits));
    const Outcome super = scaleRGBA(src, 12, 9, QVILResizeSuper, bits);
    EXPECT_TRUE(super.answer);
    EXPECT_EQ(super.pixels, squarePixel(src, 12, 9, IPPI_INTER_SUPER, bits));
    EXPECT_EQ(super.lines, kNoLines);
    // Super cannot enlarge on either axis: the resize's status is logged, the destination stays.
    const Outcome refused = scaleRGBA(src, 40, 9, QVILResizeSuper, bits, 0, 7);
    EXPECT_TRUE(refused.answer);
    EXPECT_EQ(refused.pixels, std::vector<int>(40 * 9 * 4, 7));
    EXPECT_EQ(refused.lines, std::vector<std::string>{frontLine(ippStsResizeFactorErr, 31, 22, 40, 9)});
  }
}

TEST(ScaleGeneral, LanczosRunsTheEngineWithoutFallback) {
  for (int bits : {8, 16}) {
    Image src = randomImage(31, 22, bits, 7);
    Image engine(47, 13, 4, bits);
    EXPECT_TRUE(resize()->imageLibScaleLanczosRGBA(src.buffer(), engine.buffer(), 0, bits));
    const Outcome o = scaleRGBA(src, 47, 13, QVILResizeLanczos, bits);
    EXPECT_TRUE(o.answer);
    EXPECT_EQ(o.pixels, engine.samples());
    Image small = randomImage(5, 30, bits, 8);
    const Outcome refused = scaleRGBA(small, 10, 60, QVILResizeLanczos, bits, 0, 7);
    EXPECT_FALSE(refused.answer);
    EXPECT_EQ(refused.pixels, std::vector<int>(10 * 60 * 4, 7));
    EXPECT_EQ(refused.lines.size(), 1u);
  }
}

TEST(ScaleGeneral, ModesFiveAndSixRunTheLibraryScaler) {
  for (int bits : {8, 16})
    for (auto [mode, flags] : {std::pair{5, 40u}, std::pair{6, 8u}}) {
      Image src = randomImage(31, 22, bits, 9);
      Image expected(47, 13, 4, bits);
      if (bits == 8)
        qv::platform::scaleARGB8888(src.buffer(), expected.buffer(), nullptr, flags);
      else
        qv::platform::scaleARGB16U(src.buffer(), expected.buffer(), nullptr, flags);
      const Outcome o = scaleRGBA(src, 47, 13, mode, bits);
      EXPECT_TRUE(o.answer);
      EXPECT_EQ(o.pixels, expected.samples()) << mode;
      EXPECT_EQ(o.lines, kNoLines);
    }
}

TEST(ScaleGeneral, ModesSevenToTenDrawWithTheirQualities) {
  const int qualities[] = {1, 2, 4, 3};
  for (int bits : {8, 16})
    for (int32_t mode = 7; mode <= 10; ++mode) {
      Image src = randomImage(31, 22, bits, 10);
      Image expected(17, 40, 4, bits);
      EXPECT_TRUE(qv::platform::drawScaledImage(src.buffer(), expected.buffer(), bits, qualities[mode - 7]));
      const Outcome o = scaleRGBA(src, 17, 40, mode, bits);
      EXPECT_TRUE(o.answer);
      EXPECT_EQ(o.pixels, expected.samples()) << mode;
      EXPECT_EQ(o.lines, (std::vector<std::string>{"Apple resize", "Apple resize end"}));
    }
}

TEST(ScaleGeneral, OtherModesAreNearestSilently) {
  Image src = randomImage(31, 22, 8, 11);
  for (int32_t mode : {11, 12, -1, -100, 1 << 30}) {
    const Outcome o = scaleRGBA(src, 47, 13, mode, 8);
    EXPECT_TRUE(o.answer);
    EXPECT_EQ(o.pixels, squarePixel(src, 47, 13, IPPI_INTER_NN, 8)) << mode;
    EXPECT_EQ(o.lines, kNoLines);
  }
}

TEST(ScaleGeneral, OtherDepthsDoNothing) {
  Image src = randomImage(12, 10, 8, 12);
  for (int32_t mode = -1; mode <= 11; ++mode) {
    Image dst(20, 7, 4, 8);
    dst.fill(7);
    qvtest::LogCapture log;
    const bool answer = resize()->imageLibScaleRGBA(src.buffer(), dst.buffer(), mode, 0, 32);
    EXPECT_EQ(answer, mode != QVILResizeLanczos) << mode;
    EXPECT_EQ(dst.samples(), std::vector<int>(20 * 7 * 4, 7)) << mode;
    const bool draws = mode >= 7 && mode <= 10;
    if (draws) {
      EXPECT_EQ(log.lines(), (std::vector<std::string>{"Apple resize", "Apple resize end"}));
    } else if (mode != QVILResizeLanczos) {
      EXPECT_EQ(log.lines(), kNoLines) << mode;
    }
  }
}

// The square-pixel front logs a failed size query with the two sizes and goes on: an empty
// destination is refused by the query and then by the resize (which meets no scratch block).
TEST(ScaleGeneral, FrontLogsAFailedSizeQueryAndGoesOn) {
  Image src = randomImage(12, 10, 8, 13);
  Image dst(0, 5, 4, 8);
  qvtest::LogCapture log;
  EXPECT_TRUE(resize()->imageLibScaleRGBA(src.buffer(), dst.buffer(), QVILResizeCubic, 0, 8));
  EXPECT_EQ(log.lines(), (std::vector<std::string>{frontLine(ippStsSizeErr, 12, 10, 0, 5),
                                                   frontLine(ippStsNullPtrErr, 12, 10, 0, 5)}));
}

TEST(ScaleGeneral, ForwardingFormsThrowTheirOptionWordAway) {
  for (int bits : {8, 16})
    for (int32_t mode : {0, 1, 2, 4, 6, 9}) {
      Image src = randomImage(41, 33, bits, 14);
      const Outcome plain = scaleRGBA(src, 29, 50, mode, bits, 0);
      for (uint32_t options : {0u, 0x00020002u, 0x00000001u, 0xFFFFFFFFu}) {
        Image dst(29, 50, 4, bits);
        dst.fill(7);
        qvtest::LogCapture log;
        const bool answer = bits == 8 ? resize()->imageLibScaleRGBA8888(src.buffer(), dst.buffer(), mode, options)
                                      : resize()->imageLibScaleRGBA16(src.buffer(), dst.buffer(), mode, options);
        EXPECT_EQ(answer, plain.answer);
        EXPECT_EQ(dst.samples(), plain.pixels) << mode << " " << options;
        EXPECT_EQ(log.lines(), plain.lines);
      }
      Image dst(29, 50, 4, bits);
      EXPECT_TRUE(bits == 8 ? resize()->imageLibScaleRGBA8888(src.buffer(), dst.buffer(), mode)
                            : resize()->imageLibScaleRGBA16(src.buffer(), dst.buffer(), mode));
      EXPECT_EQ(dst.samples(), plain.pixels);
    }
}

TEST(ScaleGeneral, RegionCallbackFormIgnoresItsFourExtraArguments) {
  Image src = randomImage(41, 33, 8, 15);
  const Outcome plain = scaleRGBA(src, 29, 50, QVILResizeCubic, 8);
  struct Owner {
    int calls = 0;
    char bytes[16] = "untouched owner";
  } owner;
  Image dst(29, 50, 4, 8);
  const CGRect bogus{{-1e9, 5}, {-3, 1e12}};
  EXPECT_TRUE(resize()->imageLibScaleRGBA8888(src.buffer(), dst.buffer(), QVILResizeCubic, bogus, bogus,
                                              "bufferDone:owner:", &owner));
  EXPECT_EQ(dst.samples(), plain.pixels);
  EXPECT_EQ(owner.calls, 0);
  EXPECT_STREQ(owner.bytes, "untouched owner");
  Image other(29, 50, 4, 8);
  EXPECT_TRUE(
      resize()->imageLibScaleRGBA8888(src.buffer(), other.buffer(), QVILResizeCubic, bogus, bogus, nullptr, nullptr));
  EXPECT_EQ(other.samples(), plain.pixels);
}

// The properties of the modes that stand in for the platform's, measured through the
// operation: stripes one pixel wide reduced by 0.3 come out grey in the modes whose kernels
// stretch (5, 6, 9, 10) and keep their contrast in 7 and 8; constant images stay constant.
TEST(ScaleGeneral, LibraryModesOnStripesAndConstants) {
  Image stripes(300, 40, 4, 8);
  for (int y = 0; y < 40; ++y)
    for (int x = 0; x < 300; ++x)
      for (int c = 0; c < 4; ++c) stripes.set(x, y, c, x % 2 ? 255 : 0);
  for (int32_t mode = 5; mode <= 10; ++mode) {
    Image dst(90, 12, 4, 8);
    EXPECT_TRUE(resize()->imageLibScaleRGBA(stripes.buffer(), dst.buffer(), mode, 0, 8));
    const double distance = scaletest::distanceFromGrey(dst, 3);
    std::printf("stripes reduced by 0.3 in mode %d: %.3f from grey\n", mode, distance);
    if (mode == 7 || mode == 8)
      EXPECT_GT(distance, 0.5) << mode;
    else
      EXPECT_LT(distance, 0.15) << mode;
    for (int bits : {8, 16}) {
      Image flat(37, 29, 4, bits);
      flat.fill(bits == 8 ? 99 : 40000);
      Image out(53, 11, 4, bits);
      EXPECT_TRUE(resize()->imageLibScaleRGBA(flat.buffer(), out.buffer(), mode, 0, bits));
      EXPECT_EQ(out.samples(), std::vector<int>(53 * 11 * 4, bits == 8 ? 99 : 40000)) << mode << " " << bits;
    }
  }
}

}  // namespace
