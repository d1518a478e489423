#include "sqrpixel/sqrpixel_support.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "support/tiers.h"

namespace sqrtest {

const std::vector<Layout>& layouts() {
  static const std::vector<Layout> all{{"8u C1", 1, 8}, {"8u C4", 4, 8}, {"16u C4", 4, 16}};
  return all;
}

IppStatus callResize(const Layout& layout, const uint8_t* src, IppiSize srcSize, int srcStep, IppiRect srcRoi,
                     uint8_t* dst, int dstStep, IppiRect dstRoi, double xFactor, double yFactor, double xShift,
                     double yShift, uint32_t interpolation, uint8_t* buffer) {
  if (layout.bits == 16)
    return ippiResizeSqrPixel_16u_C4R(reinterpret_cast<const Ipp16u*>(src), srcSize, srcStep, srcRoi,
                                      reinterpret_cast<Ipp16u*>(dst), dstStep, dstRoi, xFactor, yFactor, xShift, yShift,
                                      interpolation, buffer);
  if (layout.channels == 4)
    return ippiResizeSqrPixel_8u_C4R(src, srcSize, srcStep, srcRoi, dst, dstStep, dstRoi, xFactor, yFactor, xShift,
                                     yShift, interpolation, buffer);
  return ippiResizeSqrPixel_8u_C1R(src, srcSize, srcStep, srcRoi, dst, dstStep, dstRoi, xFactor, yFactor, xShift,
                                   yShift, interpolation, buffer);
}

sqrref::Samples samplesOf(const qvtest::TestImage& image, const Layout& layout) {
  sqrref::Samples s(image.width(), image.height(), layout.channels, layout.bits);
  for (int y = 0; y < image.height(); ++y)
    for (int x = 0; x < image.width(); ++x)
      for (int c = 0; c < layout.channels; ++c) {
        const uint8_t* p = image.row(y) + x * layout.pixelBytes() + c * layout.bits / 8;
        s.at(x, y, c) = layout.bits == 8 ? p[0] : p[0] | (p[1] << 8);
      }
  return s;
}

std::vector<uint8_t> bytesOf(const sqrref::Samples& s, const Layout& layout) {
  std::vector<uint8_t> out;
  for (int v : s.v) {
    out.push_back(static_cast<uint8_t>(v & 0xFF));
    if (layout.bits == 16) out.push_back(static_cast<uint8_t>(v >> 8));
  }
  return out;
}

void expectMatchesReference(const Layout& layout, const Case& c, uint32_t seed) {
  int size = 0;
  const IppStatus sizeStatus = ippiResizeGetBufSize(c.srcRoi, c.dstRoi, layout.channels, c.interpolation, &size);
  ASSERT_TRUE(sizeStatus == ippStsNoErr || sizeStatus == ippStsNoAntialiasing) << sizeStatus;

  // Rows start off every 16-byte boundary; 16-bit samples stay on 2-byte ones.
  const int srcOffset = layout.bits == 8 ? 3 : 2, dstOffset = layout.bits == 8 ? 5 : 6;
  qvtest::TestImage src(c.srcWidth, c.srcHeight, layout.pixelBytes(), 12, srcOffset);
  src.fillRandom(seed);
  qvtest::TestImage start(c.dstWidth, c.dstHeight, layout.pixelBytes(), 8, dstOffset);
  start.fillRandom(seed ^ 0x9E3779B9u);
  const sqrref::Samples from = samplesOf(src, layout);
  sqrref::Samples expected = samplesOf(start, layout);
  const IppStatus expectedStatus = sqrref::resize(
      from, expected, {src.size(), c.srcRoi, c.dstRoi, c.xFactor, c.yFactor, c.xShift, c.yShift, c.interpolation});
  const std::vector<uint8_t> expectedBytes = bytesOf(expected, layout);

  qvtest::expectSameOnEveryTier([&] {
    qvtest::TestImage dst(c.dstWidth, c.dstHeight, layout.pixelBytes(), 8, dstOffset);
    for (int y = 0; y < c.dstHeight; ++y) std::memcpy(dst.row(y), start.row(y), static_cast<size_t>(dst.rowBytes()));
    std::unique_ptr<uint8_t[]> buffer(new uint8_t[static_cast<size_t>(size)]);
    const IppStatus status =
        callResize(layout, src.data(), src.size(), src.step(), c.srcRoi, dst.data(), dst.step(), c.dstRoi, c.xFactor,
                   c.yFactor, c.xShift, c.yShift, c.interpolation, buffer.get());
    EXPECT_EQ(status, expectedStatus);
    const std::vector<uint8_t> got = dst.pixels();
    EXPECT_EQ(got.size(), expectedBytes.size());
    size_t differences = 0, first = got.size();
    for (size_t i = 0; i < got.size() && i < expectedBytes.size(); ++i)
      if (got[i] != expectedBytes[i]) {
        if (differences == 0) first = i;
        ++differences;
      }
    EXPECT_EQ(differences, 0u) << "first difference at byte " << first << ": " << int(got[first]) << " instead of "
                               << int(expectedBytes[first]);
    EXPECT_TRUE(dst.surroundingsIntact());
    return got;
  });
}

}  // namespace sqrtest
