// QVILResize perspective warp, the affine record of a quad, and the text of a quad: results and
// bounds against the steps restated, the log lines, the refusals, and who owns which block.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <string>
#include <tuple>
#include <vector>

#include "codec/leak_allowance.h"
#include "qvimage/QVILLibraryController.h"
#include "qvimage/QVILResize.h"
#include "qvimage/qvimage.h"
#include "support/images.h"
#include "support/log_capture.h"
#include "warp/warp_images.h"
#include "warp/warp_reference.h"

namespace {

using qvtest::TestImage;
using warptest::Image;
using warptest::Kind;

QVILResize* resize() { return QVILResize::sharedInstance(); }

QVILPerspectiveQuad quadOf(double tlx, double tly, double trx, double try_, double blx, double bly, double brx,
                           double bry) {
  return {{tlx, tly}, {trx, try_}, {blx, bly}, {brx, bry}};
}

// What the operation hands back, restated step by step: the picture, its size and the bounds.
struct Expected {
  Image picture;
  CGRect bounds;
};

Expected expectedWarp(const Image& src, const QVILPerspectiveQuad& quad, int32_t mode) {
  warptest::Quad outline{{{quad.topLeft.x, quad.topLeft.y},
                          {quad.topRight.x, quad.topRight.y},
                          {quad.bottomRight.x, quad.bottomRight.y},
                          {quad.bottomLeft.x, quad.bottomLeft.y}}};
  double shift[2] = {0, 0};
  int origin[2] = {0, 0}, working[2] = {src.width, src.height};
  for (int k = 0; k < 2; ++k) {
    double least = outline[0][k];
    for (const auto& p : outline) least = std::min(least, p[k]);
    if (least < 0) {
      for (auto& p : outline) p[k] -= least;
      shift[k] = least;
      origin[k] = static_cast<int>(0 - least);
      working[k] = static_cast<int>((k == 0 ? src.width : src.height) - least);
    }
  }
  const IppiRect region{origin[0], origin[1], src.width, src.height};
  warptest::Perspective c;
  EXPECT_EQ(warptest::perspectiveTransform(region, outline, c), ippStsNoErr);
  // The region's corners mapped back, and their box.
  double least[2] = {INFINITY, INFINITY}, greatest[2] = {-INFINITY, -INFINITY};
  const double corners[4][2] = {{1.0 * region.x, 1.0 * region.y},
                                {region.x + region.width - 1.0, 1.0 * region.y},
                                {region.x + region.width - 1.0, region.y + region.height - 1.0},
                                {1.0 * region.x, region.y + region.height - 1.0}};
  for (const auto& corner : corners) {
    const double x = corner[0], y = corner[1];
    const double d = c[2][0] * x + c[2][1] * y + c[2][2];
    const double mapped[2] = {(c[0][0] * x + c[0][1] * y + c[0][2]) / d, (c[1][0] * x + c[1][1] * y + c[1][2]) / d};
    for (int k = 0; k < 2; ++k)
      least[k] = std::min(least[k], mapped[k]), greatest[k] = std::max(greatest[k], mapped[k]);
  }
  // The working picture: the source placed at the region's origin (zero elsewhere: no filter
  // reads there).
  Image workingPicture(Kind::u8c4, working[0], working[1]);
  for (int y = 0; y < src.height; ++y)
    std::memcpy(workingPicture.pixel(origin[0], origin[1] + y), src.pixel(0, y), static_cast<size_t>(src.step()));
  Image output(Kind::u8c4, static_cast<int>(greatest[0]), static_cast<int>(greatest[1]));
  const int width = static_cast<int>(std::fabs(greatest[0] - least[0]));
  const int height = static_cast<int>(std::fabs(greatest[1] - least[1]));
  const IppiRect outputRegion{static_cast<int>(least[0]), static_cast<int>(least[1]), width, height};
  const int words[3] = {IPPI_SMOOTH_EDGE, IPPI_INTER_LINEAR | IPPI_SMOOTH_EDGE, IPPI_INTER_CUBIC | IPPI_SMOOTH_EDGE};
  EXPECT_EQ(
      warptest::warpPerspective(workingPicture, {working[0], working[1]}, region, output, outputRegion, c, words[mode]),
      ippStsNoErr);
  Expected expected{Image(Kind::u8c4, width, height),
                    {{shift[0] + least[0], shift[1] + least[1]}, {1.0 * width, 1.0 * height}}};
  for (int y = 0; y < height; ++y)
    std::memcpy(expected.picture.pixel(0, y), output.pixel(outputRegion.x, outputRegion.y + y),
                static_cast<size_t>(expected.picture.step()));
  return expected;
}

// The destination's pixels, rows of rowBytes.
std::vector<uint8_t> picture(const vImage_Buffer& buffer) {
  std::vector<uint8_t> out;
  for (size_t y = 0; y < buffer.height; ++y) {
    const uint8_t* row = static_cast<const uint8_t*>(buffer.data) + y * buffer.rowBytes;
    out.insert(out.end(), row, row + buffer.width * 4);
  }
  return out;
}

void expectBounds(const CGRect& got, const CGRect& expected) {
  EXPECT_EQ(got.origin.x, expected.origin.x);
  EXPECT_EQ(got.origin.y, expected.origin.y);
  EXPECT_EQ(got.size.width, expected.size.width);
  EXPECT_EQ(got.size.height, expected.size.height);
}

TEST(PerspectivePublic, WarpsEqualTheStepsRestated) {
  const Image src = warptest::randomImage(Kind::u8c4, 21, 15, 30);
  const std::vector<QVILPerspectiveQuad> quads = {
      quadOf(0, 0, 20, 0, 0, 14, 20, 14),            // the source's corners
      quadOf(3, 2, 30, 5, 1, 20, 28, 24),            // a moderate tilt
      quadOf(10.5, 4.25, 40, 0.5, 2, 30, 45, 36.5),  // a stronger one
      quadOf(5, 5, 15, 5, 5, 9, 15, 9),              // smaller than the source
      quadOf(-10.5, -3, 20, 0, 0, 14, 20, 14),       // reaching left and up: a larger working picture
      quadOf(2, -7.75, 30, -2, 0, 20, 25, 25),       // reaching up only
      quadOf(-0.4, 1, 22, 1, 0, 16, 22, 16),         // a shift that truncates to no enlargement
  };
  for (size_t n = 0; n < quads.size(); ++n)
    for (int32_t mode : {1, 2}) {
      // Cubic taps reach two pixels beyond the source, into the uninitialised part of an enlarged
      // working picture: only linear is compared there.
      const bool enlarged = n == 4 || n == 5;
      if (enlarged && mode == 2) continue;
      SCOPED_TRACE(testing::Message() << "quad " << n << " mode " << mode << ": "
                                      << NSStringFromQVILPerspectiveQuad(quads[n]));
      const Expected expected = expectedWarp(src, quads[n], mode);
      TestImage from = warptest::toTestImage(src, 8, 0);
      vImage_Buffer source = from.buffer();
      std::vector<uint8_t> previous(16, 0);
      vImage_Buffer destination{previous.data(), 1, 1, 16};
      CGRect bounds{};
      qvtest::LogCapture log;
      ASSERT_TRUE(resize()->imageLibPerspectiveWarpRGBA8888(&source, &destination, &quads[n], mode, &bounds));
      EXPECT_TRUE(log.lines().empty());
      EXPECT_NE(destination.data, previous.data());
      EXPECT_EQ(destination.width, static_cast<size_t>(expected.picture.width));
      EXPECT_EQ(destination.height, static_cast<size_t>(expected.picture.height));
      EXPECT_EQ(destination.rowBytes, (destination.width * 4 + 63) / 64 * 64);
      EXPECT_EQ(picture(destination), expected.picture.bytes);
      expectBounds(bounds, expected.bounds);
      EXPECT_EQ(from.pixels(), src.bytes);  // the source is read only
      std::free(destination.data);
    }
}

// A quad on the source's corners gives (w-1) x (h-1) pixels: the truncated difference of
// coordinates, one less than the source; the pixels are the source's own.
TEST(PerspectivePublic, SourceCornersGiveOnePixelLess) {
  const Image src = warptest::randomImage(Kind::u8c4, 9, 6, 31);
  const QVILPerspectiveQuad quad = quadOf(0, 0, 8, 0, 0, 5, 8, 5);
  TestImage from = warptest::toTestImage(src, 0, 0);
  vImage_Buffer source = from.buffer(), destination{};
  CGRect bounds{};
  ASSERT_TRUE(resize()->imageLibPerspectiveWarpRGBA8888(&source, &destination, &quad, 1, &bounds));
  ASSERT_EQ(destination.width, 8u);
  ASSERT_EQ(destination.height, 5u);
  for (int y = 0; y < 5; ++y)
    EXPECT_EQ(0, std::memcmp(static_cast<uint8_t*>(destination.data) + y * destination.rowBytes, src.pixel(0, y), 32));
  expectBounds(bounds, {{0, 0}, {8, 5}});
  std::free(destination.data);
}

// Top left at (-10.5, -3): the working picture is 10 columns wider (the sum truncated) with the
// source at (10, 3), and the bounds come back to the caller's coordinates.
TEST(PerspectivePublic, NegativeQuadsEnlargeTheWorkingPicture) {
  const Image src = warptest::randomImage(Kind::u8c4, 12, 8, 32);
  const QVILPerspectiveQuad quad = quadOf(-10.5, -3, 11, 0, 0, 7, 11, 7);
  const Expected expected = expectedWarp(src, quad, 1);
  EXPECT_EQ(expected.bounds.origin.x, -10.5 + 0);
  TestImage from = warptest::toTestImage(src, 4, 0);
  vImage_Buffer source = from.buffer(), destination{};
  CGRect bounds{};
  ASSERT_TRUE(resize()->imageLibPerspectiveWarpRGBA8888(&source, &destination, &quad, 1, &bounds));
  EXPECT_EQ(picture(destination), expected.picture.bytes);
  expectBounds(bounds, expected.bounds);
  EXPECT_EQ(bounds.origin.x, -10.5);
  EXPECT_EQ(bounds.origin.y, -3);
  std::free(destination.data);
}

TEST(PerspectivePublic, RefusalsLeaveTheRecordAndBoundsAlone) {
  TestImage src(10, 8, 4), thin(1, 8, 4);
  src.fillRandom(33);
  thin.fillRandom(34);
  const QVILPerspectiveQuad good = quadOf(1, 1, 20, 2, 0, 15, 22, 14);
  const QVILPerspectiveQuad crossed = quadOf(0, 0, 20, 15, 0, 15, 20, 0);
  const QVILPerspectiveQuad onALine = quadOf(0, 0, 10, 0, 5, 0, 20, 14);
  const QVILPerspectiveQuad flat = quadOf(0, 0, 10, 0, 0, 0, 10, 0);
  int marker = 0;
  const vImage_Buffer untouched{&marker, 3, 4, 5};
  const CGRect unwritten{{1, 2}, {3, 4}};
  struct Refusal {
    const vImage_Buffer* source;
    bool nullDestination;
    const QVILPerspectiveQuad* quad;
    bool nullBounds;
    int32_t mode;
    std::string log;
  };
  vImage_Buffer source = src.buffer(), thinSource = thin.buffer();
  const std::string interpolationError =
      std::string("warp perspective error: ") + ippGetStatusString(ippStsInterpolationErr);
  const std::vector<Refusal> refusals = {
      {nullptr, false, &good, false, 1, ""},
      {&source, true, &good, false, 1, ""},
      {&source, false, nullptr, false, 1, ""},
      {&source, false, &good, true, 1, ""},
      {&source, false, &good, false, 3, "ERROR: Unsupported interpolation mode: 3"},
      {&source, false, &good, false, -1, "ERROR: Unsupported interpolation mode: -1"},
      {&source, false, &good, false, 0, interpolationError},
      {&source, false, &crossed, false, 1, ""},
      {&source, false, &onALine, false, 2, ""},
      {&source, false, &flat, false, 1, ""},
      {&thinSource, false, &good, false, 1, ""},
  };
  for (size_t i = 0; i < refusals.size(); ++i) {
    const Refusal& r = refusals[i];
    vImage_Buffer destination = untouched;
    CGRect bounds = unwritten;
    qvtest::LogCapture log;
    EXPECT_FALSE(resize()->imageLibPerspectiveWarpRGBA8888(r.source, r.nullDestination ? nullptr : &destination, r.quad,
                                                           r.mode, r.nullBounds ? nullptr : &bounds))
        << i;
    if (r.log.empty()) {
      EXPECT_TRUE(log.lines().empty()) << i;
    } else {
      ASSERT_EQ(log.lines().size(), 1u) << i;
      EXPECT_EQ(log.lines()[0], r.log) << i;
    }
    EXPECT_EQ(destination.data, untouched.data) << i;
    EXPECT_EQ(destination.width, untouched.width) << i;
    EXPECT_EQ(destination.height, untouched.height) << i;
    EXPECT_EQ(destination.rowBytes, untouched.rowBytes) << i;
    expectBounds(bounds, unwritten);
  }
}

// When the warp itself fails after the source was copied into a larger picture, that copy is
// not released: the leak is part of the operation's behaviour.
TEST(PerspectivePublic, FailedWarpKeepsTheEnlargedSourceAllocated) {
  TestImage src(10, 8, 4);
  src.fillRandom(35);
  const QVILPerspectiveQuad quad = quadOf(-4, -2, 12, 0, 0, 9, 12, 9);
  vImage_Buffer source = src.buffer(), destination{};
  CGRect bounds{};
  codectest::LeakAllowance keep;
  qvtest::LogCapture log;
  EXPECT_FALSE(resize()->imageLibPerspectiveWarpRGBA8888(&source, &destination, &quad, 0, &bounds));
  ASSERT_EQ(log.lines().size(), 1u);
  EXPECT_EQ(log.lines()[0], std::string("warp perspective error: ") + ippGetStatusString(ippStsInterpolationErr));
}

uint64_t paddedBy100(uint64_t rowBytes) { return rowBytes + 100; }

// The caller's old block is neither freed nor touched; the new one is a plain heap block of
// height x rowBytes that the caller releases with free (under AddressSanitizer a block of the
// aligned allocator, or a freed old block, would be reported here); rowBytes comes from the
// controller's function.
TEST(PerspectivePublic, TheCallerOwnsTheNewBlockAndKeepsTheOldOne) {
  QVILLibraryController* controller = QVILLibraryController::sharedInstance();
  const QVILAllignRowBytesFunction saved = controller->allignRowBytesFunction();
  const Image src = warptest::randomImage(Kind::u8c4, 16, 12, 36);
  for (bool custom : {false, true})
    for (const QVILPerspectiveQuad& quad : {quadOf(2, 1, 20, 3, 0, 14, 18, 16), quadOf(-3, -1, 20, 3, 0, 14, 18, 16)}) {
      if (custom) controller->setAllignRowBytesFunction(paddedBy100);
      uint8_t* old = static_cast<uint8_t*>(std::malloc(64));
      std::memset(old, 0x3C, 64);
      TestImage from = warptest::toTestImage(src, 0, 0);
      vImage_Buffer source = from.buffer(), destination{old, 4, 4, 16};
      CGRect bounds{};
      ASSERT_TRUE(resize()->imageLibPerspectiveWarpRGBA8888(&source, &destination, &quad, 1, &bounds));
      controller->setAllignRowBytesFunction(saved);
      EXPECT_NE(destination.data, static_cast<void*>(old));
      EXPECT_EQ(destination.rowBytes, custom ? destination.width * 4 + 100 : (destination.width * 4 + 63) / 64 * 64);
      // Every byte of the new block is the caller's to write.
      std::memset(destination.data, 0x11, destination.height * destination.rowBytes);
      for (int i = 0; i < 64; ++i) ASSERT_EQ(old[i], 0x3C);
      std::free(destination.data);
      std::free(old);
    }
}

TEST(PerspectivePublic, AffineRecordOfAQuad) {
  vImage_AffineTransform m{};
  // A translated w x h rectangle with corners at w-1 and h-1: a 1, d 1, b 0, c 0, tx q, ty p.
  const double p = 7.5, q = -3.25;
  const QVILPerspectiveQuad moved = quadOf(p, q, p + 19, q, p, q + 9, p + 19, q + 9);
  ASSERT_TRUE(resize()->imageLibAffineTransformMatrixFrom(&moved, 20, 10, &m));
  EXPECT_EQ(m.a, 1.0f);
  EXPECT_EQ(m.d, 1.0f);
  EXPECT_EQ(m.b, 0.0f);
  EXPECT_EQ(m.c, 0.0f);
  EXPECT_EQ(m.tx, static_cast<float>(q));
  EXPECT_EQ(m.ty, static_cast<float>(p));
  // In general: a = c00, b = -c10, c = -c01, d = c11, tx = c12, ty = c02.
  const QVILPerspectiveQuad tilted = quadOf(3, 2, 30, 5, 1, 20, 28, 24);
  warptest::Perspective c;
  ASSERT_EQ(warptest::perspectiveTransform({0, 0, 16, 12}, {{{3, 2}, {30, 5}, {28, 24}, {1, 20}}}, c), ippStsNoErr);
  ASSERT_TRUE(resize()->imageLibAffineTransformMatrixFrom(&tilted, 16, 12, &m));
  EXPECT_EQ(m.a, static_cast<float>(c[0][0]));
  EXPECT_EQ(m.b, static_cast<float>(-c[1][0]));
  EXPECT_EQ(m.c, static_cast<float>(-c[0][1]));
  EXPECT_EQ(m.d, static_cast<float>(c[1][1]));
  EXPECT_EQ(m.tx, static_cast<float>(c[1][2]));
  EXPECT_EQ(m.ty, static_cast<float>(c[0][2]));
  // Refusals write nothing and log nothing.
  const vImage_AffineTransform marker{9, 9, 9, 9, 9, 9};
  qvtest::LogCapture log;
  for (const auto& [quad, w, h] : std::vector<std::tuple<QVILPerspectiveQuad, uint32_t, uint32_t>>{
           {quadOf(0, 0, 10, 10, 0, 10, 10, 0), 5, 5}, {tilted, 1, 5}, {tilted, 5, 0}, {tilted, 0x80000000u, 5}}) {
    m = marker;
    EXPECT_FALSE(resize()->imageLibAffineTransformMatrixFrom(&quad, w, h, &m));
    EXPECT_EQ(std::memcmp(&m, &marker, sizeof m), 0);
  }
  EXPECT_TRUE(log.lines().empty());
}

TEST(PerspectivePublic, TextListsBottomRightBeforeBottomLeft) {
  EXPECT_EQ(NSStringFromQVILPerspectiveQuad(quadOf(1, 2, 3.5, -4, 0, 6, 7, 8)),
            "{tl: {1, 2}; tr: {3.5, -4}; br: {7, 8}; bl: {0, 6}}");
  EXPECT_EQ(NSStringFromQVILPerspectiveQuad(quadOf(0.1, -0.0, 640, 480, -1e-3, 2.25, 1e21, 3)),
            "{tl: {0.1, -0}; tr: {640, 480}; br: {1e+21, 3}; bl: {-0.001, 2.25}}");
}

}  // namespace
