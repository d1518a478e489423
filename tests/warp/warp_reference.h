#ifndef QV_TESTS_WARP_WARP_REFERENCE_H
#define QV_TESTS_WARP_WARP_REFERENCE_H

// A plain restatement of the warps, written from their rules one step at a time: quad tests,
// clipping and spans, the pixel rules of every interpolation, smooth edges, the drivers with
// their statuses, and quarter turns by index arithmetic. Images are packed byte vectors.

#include <array>
#include <cstdint>
#include <optional>
#include <vector>

#include "qvimage/qvimage.h"

namespace warptest {

using Point = std::array<double, 2>;
using Quad = std::array<Point, 4>;
using Affine = std::array<std::array<double, 3>, 2>;
using Perspective = std::array<std::array<double, 3>, 3>;

// The three kinds of image the exported primitives take.
enum class Kind { u8c1, u8c4, u16c4 };
int channelsOf(Kind kind);
int sampleBytesOf(Kind kind);
int pixelBytesOf(Kind kind);
int typeCodeOf(Kind kind);

// A packed image: rows of width * pixelBytes bytes, no padding.
struct Image {
  Kind kind = Kind::u8c4;
  int width = 0, height = 0;
  std::vector<uint8_t> bytes;
  Image() = default;
  Image(Kind kind, int width, int height);
  int step() const { return width * pixelBytesOf(kind); }
  int sample(int x, int y, int channel) const;
  void setSample(int x, int y, int channel, int value);
  uint8_t* pixel(int x, int y) { return bytes.data() + static_cast<size_t>(y) * step() + x * pixelBytesOf(kind); }
  const uint8_t* pixel(int x, int y) const {
    return bytes.data() + static_cast<size_t>(y) * step() + x * pixelBytesOf(kind);
  }
};

Image randomImage(Kind kind, int width, int height, uint32_t seed);

// Quad tests: -5 degenerate, -4 not convex, 1 positive, 0 negative.
int checkQuad(const Quad& quad);

// Sutherland-Hodgman against x >= x0, x <= x1, y >= y0, y <= y1, in that order.
std::vector<Point> clipPolygon(const Quad& quad, double x0, double y0, double x1, double y1);

struct Spans {
  int firstRow = 0;
  std::vector<std::array<int, 2>> columns;  // first and last column per row; first > last is empty
  int lastRow() const { return firstRow + static_cast<int>(columns.size()) - 1; }
};

// The rows and columns of the destination rectangle that the quad covers; nothing when it
// misses.
std::optional<Spans> spansOf(const Quad& quad, IppiPoint first, IppiPoint last, bool winding);

// The cubic weights of t (0..1536) from the Lagrange rule in floating point, rounded.
std::array<int, 4> cubicWeights(int t);

// The interpolation rules at one source point, written into the pixel at out.
void nearestAt(const Image& src, double x, double y, uint8_t* out);                // +0.5, truncated
void nearestVectorAt(const Image& src, float x, float y, uint8_t* out);            // rounded, ties to even
void linearFixedAt(const Image& src, double x, double y, int bias, uint8_t* out);  // 8u C4
void linearFloat8uC1At(const Image& src, double x, double y, uint8_t* out);
void linear16uC4At(const Image& src, double x, double y, uint8_t* out);
void cubicAt(const Image& src, float x, float y, uint8_t* out);  // 8u C1, 8u C4, 16u C4
void catmullRomAt(const Image& src, double x, double y, uint8_t* out);

// ownpi_SmoothBorder on dst.
void smoothBorder(Image& dst, const Quad& quad, IppiPoint first, IppiPoint last, bool winding);

// The affine warp driver (filter word with the optional smooth-edge flag); dst is written as
// the primitive writes it, and the status answered.
IppStatus warpAffine(const Image& src, IppiSize srcSize, IppiRect srcRoi, Image& dst, IppiRect dstRoi,
                     const Affine& coeffs, int interpolation);

IppStatus warpPerspective(const Image& src, IppiSize srcSize, IppiRect srcRoi, Image& dst, IppiRect dstRoi,
                          const Perspective& coeffs, int interpolation);

// The rotation driver, the exact path by index arithmetic.
IppStatus rotate(const Image& src, IppiSize srcSize, IppiRect srcRoi, Image& dst, IppiRect dstRoi, double angle,
                 double xShift, double yShift, int interpolation);

double normalisedAngle(double angle);
Affine rotationCoefficients(double angle, double xShift, double yShift);

// The perspective fit of a region to a quad given around its outline.
IppStatus perspectiveTransform(IppiRect roi, const Quad& quad, Perspective& coeffs);

}  // namespace warptest

#endif
