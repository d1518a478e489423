#include "warp/warp_reference.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <random>

namespace warptest {

int channelsOf(Kind kind) { return kind == Kind::u8c1 ? 1 : 4; }
int sampleBytesOf(Kind kind) { return kind == Kind::u16c4 ? 2 : 1; }
int pixelBytesOf(Kind kind) { return channelsOf(kind) * sampleBytesOf(kind); }
int typeCodeOf(Kind kind) { return kind == Kind::u8c1 ? 0 : kind == Kind::u8c4 ? 4 : 20; }

Image::Image(Kind k, int w, int h)
    : kind(k), width(w), height(h), bytes(static_cast<size_t>(w) * h * pixelBytesOf(k)) {}

int Image::sample(int x, int y, int channel) const {
  const uint8_t* p = pixel(x, y) + channel * sampleBytesOf(kind);
  if (sampleBytesOf(kind) == 1) return *p;
  uint16_t v;
  std::memcpy(&v, p, 2);
  return v;
}

void Image::setSample(int x, int y, int channel, int value) {
  uint8_t* p = pixel(x, y) + channel * sampleBytesOf(kind);
  if (sampleBytesOf(kind) == 1) {
    *p = static_cast<uint8_t>(value);
  } else {
    const uint16_t v = static_cast<uint16_t>(value);
    std::memcpy(p, &v, 2);
  }
}

Image randomImage(Kind kind, int width, int height, uint32_t seed) {
  Image image(kind, width, height);
  std::mt19937 generator(seed);
  for (uint8_t& byte : image.bytes) byte = static_cast<uint8_t>(generator());
  return image;
}

// ---------------------------------------------------------------------------------------------
// Quads, clipping and spans.

int checkQuad(const Quad& q) {
  double turns[4];
  const int order[4] = {3, 0, 1, 2};
  for (int k = 0; k < 4; ++k) {
    const int i = order[k];
    const Point& before = q[(i + 3) % 4];
    const Point& at = q[i];
    const Point& after = q[(i + 1) % 4];
    turns[k] = (at[0] - before[0]) * (after[1] - at[1]) - (at[1] - before[1]) * (after[0] - at[0]);
  }
  for (double t : turns)
    if (t == 0) return -5;
  if (std::all_of(turns, turns + 4, [](double t) { return t > 0; })) return 1;
  if (std::all_of(turns, turns + 4, [](double t) { return t < 0; })) return 0;
  return -4;
}

std::vector<Point> clipPolygon(const Quad& quad, double x0, double y0, double x1, double y1) {
  std::vector<Point> polygon(quad.begin(), quad.end());
  struct Side {
    int axis;
    double value;
    bool lower;
  };
  const Side sides[4] = {{0, x0, true}, {0, x1, false}, {1, y0, true}, {1, y1, false}};
  for (const Side& side : sides) {
    std::vector<Point> out;
    const size_t n = polygon.size();
    for (size_t i = 0; i < n; ++i) {
      const Point& current = polygon[i];
      const Point& previous = polygon[(i + n - 1) % n];
      auto inside = [&](const Point& p) {
        return side.lower ? p[side.axis] >= side.value : p[side.axis] <= side.value;
      };
      if (inside(current) != inside(previous)) {
        const int other = 1 - side.axis;
        const double t = (side.value - previous[side.axis]) / (current[side.axis] - previous[side.axis]);
        Point crossing;
        crossing[side.axis] = side.value;
        crossing[other] = previous[other] + t * (current[other] - previous[other]);
        out.push_back(crossing);
      }
      if (inside(current)) out.push_back(current);
    }
    polygon = out;
    if (polygon.empty()) break;
  }
  return polygon;
}

std::optional<Spans> spansOf(const Quad& quad, IppiPoint first, IppiPoint last, bool winding) {
  const std::vector<Point> polygon = clipPolygon(quad, first.x, first.y, last.x, last.y);
  if (polygon.empty()) return std::nullopt;
  double leastX = polygon[0][0], greatestX = leastX, leastY = polygon[0][1], greatestY = leastY;
  for (const Point& p : polygon) {
    leastX = std::min(leastX, p[0]);
    greatestX = std::max(greatestX, p[0]);
    leastY = std::min(leastY, p[1]);
    greatestY = std::max(greatestY, p[1]);
  }
  if (std::floor(greatestY) < std::ceil(leastY) || std::floor(greatestX) < std::ceil(leastX)) return std::nullopt;
  Spans spans;
  spans.firstRow = static_cast<int>(std::ceil(leastY));
  const int lastRow = static_cast<int>(std::floor(greatestY));
  const size_t n = polygon.size();
  for (int y = spans.firstRow; y <= lastRow; ++y) {
    double left = INFINITY, right = -INFINITY;
    for (size_t i = 0; i < n; ++i) {
      const Point& a = polygon[i];
      const Point& b = polygon[(i + 1) % n];
      const double runY = b[1] - a[1];
      if (runY == 0) {
        if (a[1] == y) {
          left = std::min({left, a[0], b[0]});
          right = std::max({right, a[0], b[0]});
        }
        continue;
      }
      if (y < std::min(a[1], b[1]) || y > std::max(a[1], b[1])) continue;
      const double x = a[0] + (y - a[1]) * (b[0] - a[0]) / runY;
      // Walking the outline with the winding, downward edges bound the right side.
      if ((runY > 0) == winding)
        right = std::max(right, x);
      else
        left = std::min(left, x);
    }
    std::array<int, 2> columns{first.x, first.x - 1};
    if (left <= right) {
      double firstColumn = std::ceil(left), lastColumn = std::floor(right);
      if (1 + left - std::ceil(left) < 1e-13) firstColumn = std::ceil(left) - 1;
      if (1 - right + std::floor(right) < 1e-13) lastColumn = std::floor(right) + 1;
      firstColumn = std::max(firstColumn, static_cast<double>(first.x));
      lastColumn = std::min(lastColumn, static_cast<double>(last.x));
      columns = {static_cast<int>(firstColumn), static_cast<int>(firstColumn) - 1};
      if (firstColumn <= lastColumn) columns[1] = static_cast<int>(lastColumn);
    }
    spans.columns.push_back(columns);
  }
  return spans;
}

// ---------------------------------------------------------------------------------------------
// Pixel rules.

std::array<int, 4> cubicWeights(int t) {
  const double u = t / 512.0;
  const double w[4] = {-(u - 1) * (u - 2) * (u - 3) / 6, u * (u - 2) * (u - 3) / 2, -u * (u - 1) * (u - 3) / 2,
                       u * (u - 1) * (u - 2) / 6};
  std::array<int, 4> out;
  for (int k = 0; k < 4; ++k) out[k] = static_cast<int>(std::lround(w[k] * 16384));
  return out;
}

namespace {

int maximumOf(const Image& image) { return sampleBytesOf(image.kind) == 1 ? 255 : 65535; }

void copyPixel(const Image& src, int x, int y, uint8_t* out) {
  std::memcpy(out, src.pixel(x, y), static_cast<size_t>(pixelBytesOf(src.kind)));
}

void setChannel(const Image& like, uint8_t* out, int channel, int value) {
  if (sampleBytesOf(like.kind) == 1) {
    out[channel] = static_cast<uint8_t>(value);
  } else {
    const uint16_t v = static_cast<uint16_t>(value);
    std::memcpy(out + 2 * channel, &v, 2);
  }
}

int saturate16(int v) { return std::clamp(v, -32768, 32767); }

}  // namespace

void nearestAt(const Image& src, double x, double y, uint8_t* out) {
  copyPixel(src, static_cast<int>(x + 0.5), static_cast<int>(y + 0.5), out);
}

void nearestVectorAt(const Image& src, float x, float y, uint8_t* out) {
  copyPixel(src, static_cast<int>(std::nearbyint(x)), static_cast<int>(std::nearbyint(y)), out);
}

void linearFixedAt(const Image& src, double x, double y, int bias, uint8_t* out) {
  int ix = static_cast<int>(x), iy = static_cast<int>(y);
  if (ix == src.width - 1) --ix;
  if (iy == src.height - 1) --iy;
  const int fx = std::min(static_cast<int>(std::nearbyint((x - ix) * 16384.0)), 16384);
  const int fy = std::min(static_cast<int>(std::nearbyint((y - iy) * 16384.0)), 16384);
  for (int c = 0; c < 4; ++c) {
    const int top = saturate16((src.sample(ix, iy, c) * (16384 - fx) + src.sample(ix + 1, iy, c) * fx) >> 8);
    const int bottom = saturate16((src.sample(ix, iy + 1, c) * (16384 - fx) + src.sample(ix + 1, iy + 1, c) * fx) >> 8);
    out[c] = static_cast<uint8_t>(std::clamp((top * (16384 - fy) + bottom * fy + bias) >> 20, 0, 255));
  }
}

void linearFloat8uC1At(const Image& src, double x, double y, uint8_t* out) {
  const float xf = static_cast<float>(x), yf = static_cast<float>(y);
  int ix = static_cast<int>(xf), iy = static_cast<int>(yf);
  if (ix == src.width - 1) --ix;
  if (iy == src.height - 1) --iy;
  const float fx = xf - static_cast<float>(ix), fy = yf - static_cast<float>(iy);
  const float p00 = src.sample(ix, iy, 0), p01 = src.sample(ix + 1, iy, 0);
  const float p10 = src.sample(ix, iy + 1, 0), p11 = src.sample(ix + 1, iy + 1, 0);
  const float top = p00 + (p01 - p00) * fx;
  const float bottom = p10 + (p11 - p10) * fx;
  const float value = top + (bottom - top) * fy + 0.5f;
  out[0] = static_cast<uint8_t>(std::clamp(static_cast<int>(value), 0, 255));
}

void linear16uC4At(const Image& src, double x, double y, uint8_t* out) {
  int ix = static_cast<int>(x), iy = static_cast<int>(y);
  if (ix == src.width - 1) --ix;
  if (iy == src.height - 1) --iy;
  const float fx = static_cast<float>(x - ix), fy = static_cast<float>(y - iy);
  for (int c = 0; c < 4; ++c) {
    const float p00 = src.sample(ix, iy, c), p01 = src.sample(ix + 1, iy, c);
    const float p10 = src.sample(ix, iy + 1, c), p11 = src.sample(ix + 1, iy + 1, c);
    const float top = p00 + (p01 - p00) * fx;
    const float bottom = p10 + (p11 - p10) * fx;
    setChannel(src, out, c, static_cast<int>(std::nearbyint(top + (bottom - top) * fy)));
  }
}

void cubicAt(const Image& src, float x, float y, uint8_t* out) {
  auto tap = [](float coordinate, int limit, int* index, int* t) {
    *index = std::min(static_cast<int>(coordinate), limit - 2);
    if (*index > 0) --*index;
    *t = static_cast<int>(std::nearbyint((static_cast<double>(coordinate) - *index) * 512.0));
    *t = std::clamp(*t, 0, 1536);  // held within the table for points beyond the source's last pixel
  };
  int ix, iy, tx, ty;
  tap(x, src.width - 1, &ix, &tx);
  tap(y, src.height - 1, &iy, &ty);
  const std::array<int, 4> wx = cubicWeights(tx), wy = cubicWeights(ty);
  for (int c = 0; c < channelsOf(src.kind); ++c) {
    int64_t total = 0;
    for (int k = 0; k < 4; ++k) {
      int64_t row = 0;
      for (int j = 0; j < 4; ++j) row += static_cast<int64_t>(src.sample(ix + j, iy + k, c)) * wx[j];
      total += (row >> 8) * wy[k];
    }
    setChannel(src, out, c, static_cast<int>(std::clamp<int64_t>((total + 524288) >> 20, 0, maximumOf(src))));
  }
}

void catmullRomAt(const Image& src, double x, double y, uint8_t* out) {
  auto indices = [](double coordinate, int size, int index[4]) {
    const int i = static_cast<int>(coordinate + 1e-7);
    for (int k = 0; k < 4; ++k) index[k] = std::clamp(i - 1 + k, 0, size - 1);
    return coordinate - i;
  };
  auto weights = [](double t, double w[4]) {
    w[0] = -0.5 * (t * t * t) + t * t - 0.5 * t;
    w[1] = 1.5 * (t * t * t) - 2.5 * (t * t) + 1;
    w[2] = -1.5 * (t * t * t) + 2 * (t * t) + 0.5 * t;
    w[3] = 0.5 * (t * t * t) - 0.5 * (t * t);
  };
  int xi[4], yi[4];
  double wx[4], wy[4];
  weights(indices(x, src.width, xi), wx);
  weights(indices(y, src.height, yi), wy);
  for (int c = 0; c < channelsOf(src.kind); ++c) {
    double sum = 0;
    for (int k = 0; k < 4; ++k) {
      double row = 0;
      for (int j = 0; j < 4; ++j) row += src.sample(xi[j], yi[k], c) * wx[j];
      sum += row * wy[k];
    }
    const double maximum = maximumOf(src);
    const int value = sum > maximum ? static_cast<int>(maximum) : sum < 0.0 ? 0 : static_cast<int>(sum + 0.5);
    setChannel(src, out, c, value);
  }
}

// ---------------------------------------------------------------------------------------------
// Smooth edges.

void smoothBorder(Image& dst, const Quad& quad, IppiPoint first, IppiPoint last, bool winding) {
  const std::vector<Point> polygon = clipPolygon(quad, first.x, first.y, last.x, last.y);
  if (polygon.size() < 3) return;
  const size_t n = polygon.size();
  const int blended = channelsOf(dst.kind);
  for (size_t i = 0; i < n; ++i) {
    const Point& p = polygon[i];
    const Point& q = polygon[(i + 1) % n];
    const double runX = q[0] - p[0], runY = q[1] - p[1];
    if (runX == 0 || runY == 0) continue;
    const bool byRows = std::fabs(runY) > std::fabs(runX);
    const int along = byRows ? 1 : 0, across = 1 - along;
    const double run = byRows ? runY : runX;
    const double slope = (byRows ? runX : runY) / run;
    const int start = static_cast<int>(std::ceil(std::min(p[along], q[along])));
    const int end = static_cast<int>(std::floor(std::max(p[along], q[along])));
    for (int step = start; step <= end; ++step) {
      const double v = p[across] + (step - p[along]) * slope;
      if (v == std::floor(v)) continue;
      // The table of the written pixel a and the pixel b beside it.
      bool floorWritten;
      if (!byRows)
        floorWritten = winding ? run > 0 : !(run > 0);
      else
        floorWritten = winding ? !(run > 0) : run > 0;
      const double a = floorWritten ? std::floor(v) : std::ceil(v);
      const double b = floorWritten ? std::ceil(v) : std::floor(v);
      if (a < 0 || b < 0) continue;
      const int ax = byRows ? static_cast<int>(a) : step, ay = byRows ? step : static_cast<int>(a);
      const int bx = byRows ? static_cast<int>(b) : step, by = byRows ? step : static_cast<int>(b);
      for (int c = 0; c < blended; ++c) {
        const double value = dst.sample(ax, ay, c) * std::fabs(v - a) + dst.sample(bx, by, c) * std::fabs(v - b);
        dst.setSample(ax, ay, c, static_cast<int>(value + 0.5));
      }
    }
  }
}

// ---------------------------------------------------------------------------------------------
// Drivers.

namespace {

bool sizesValid(IppiSize srcSize, IppiRect srcRoi, IppiRect dstRoi) {
  return srcSize.width > 0 && srcSize.height > 0 && srcRoi.x >= 0 && srcRoi.y >= 0 && srcRoi.width > 0 &&
         srcRoi.height > 0 && dstRoi.x >= 0 && dstRoi.y >= 0 && dstRoi.width > 0 && dstRoi.height > 0;
}

bool nearlySingular(double c0, double c1, double c3, double c4) {
  const double p = c0 * c4, q = c1 * c3;
  if (std::fabs(p) <= 1e-200) return std::fabs(q) <= 1e-10;
  return std::fabs((p - q) / p) <= 1e-10;
}

unsigned lowerFilter(unsigned filter, IppiSize srcSize) {
  if (srcSize.width == 1 || srcSize.height == 1) return IPPI_INTER_NN;
  if (filter == IPPI_INTER_CUBIC && (srcSize.width < 4 || srcSize.height < 4)) return IPPI_INTER_LINEAR;
  return filter;
}

IppStatus cutRegion(IppiRect srcRoi, IppiSize srcSize, IppiRect* region) {
  if (srcRoi.x >= srcSize.width || srcRoi.y >= srcSize.height) return ippStsWrongIntersectROI;
  *region = {srcRoi.x, srcRoi.y, std::min(srcRoi.width, srcSize.width - srcRoi.x),
             std::min(srcRoi.height, srcSize.height - srcRoi.y)};
  if (region->width <= 1 || region->height <= 1) return ippStsRectErr;
  return ippStsNoErr;
}

IppiPoint firstOf(IppiRect r) { return {r.x, r.y}; }

// The region's corner pixels around its outline.
Quad cornersOf(IppiRect region) {
  const double x0 = region.x, y0 = region.y, x1 = region.x + region.width - 1.0, y1 = region.y + region.height - 1.0;
  return {{{x0, y0}, {x1, y0}, {x1, y1}, {x0, y1}}};
}
IppiPoint lastOf(IppiRect r) { return {r.x + r.width - 1, r.y + r.height - 1}; }

}  // namespace

IppStatus warpAffine(const Image& src, IppiSize srcSize, IppiRect srcRoi, Image& dst, IppiRect dstRoi, const Affine& c,
                     int interpolation) {
  if (!sizesValid(srcSize, srcRoi, dstRoi)) return ippStsSizeErr;
  unsigned filter = static_cast<unsigned>(interpolation) & 0x7FFFFFFFu;
  if (filter != 1 && filter != 2 && filter != 4 && filter != 6) return ippStsInterpolationErr;
  if (nearlySingular(c[0][0], c[0][1], c[1][0], c[1][1])) return ippStsCoeffErr;
  filter = lowerFilter(filter, srcSize);
  IppiRect region;
  if (const IppStatus cut = cutRegion(srcRoi, srcSize, &region); cut != ippStsNoErr) return cut;
  // The region's quad.
  const Quad corners = cornersOf(region);
  Quad quad;
  for (int i = 0; i < 4; ++i) {
    quad[i][0] = c[0][0] * corners[i][0] + c[0][1] * corners[i][1] + c[0][2];
    quad[i][1] = c[1][0] * corners[i][0] + c[1][1] * corners[i][1] + c[1][2];
  }
  const int check = checkQuad(quad);
  if (check == -4 || check == -5) return ippStsCoeffErr;
  // The inverse from the quad's first three corners.
  const double a = quad[1][0] - quad[0][0], b = quad[2][0] - quad[1][0];
  const double cc = quad[1][1] - quad[0][1], d = quad[2][1] - quad[1][1];
  const double r = 1 / (a * d - b * cc);
  const double w = region.width - 1, h = region.height - 1;
  double m[6];
  m[0] = d * w * r;
  m[1] = -b * w * r;
  m[3] = -cc * h * r;
  m[4] = a * h * r;
  m[2] = region.x - m[0] * quad[0][0] - m[1] * quad[0][1];
  m[5] = region.y - m[3] * quad[0][0] - m[4] * quad[0][1];
  const bool winding = r > 0;
  const std::optional<Spans> spans = spansOf(quad, firstOf(dstRoi), lastOf(dstRoi), winding);
  if (!spans) return ippStsWrongIntersectQuad;
  // The coordinates carried by addition: down the rows, then along each span.
  double baseX = m[1] * spans->firstRow + m[2], baseY = m[4] * spans->firstRow + m[5];
  for (int y = spans->firstRow; y <= spans->lastRow(); ++y, baseX += m[1], baseY += m[4]) {
    const auto [xs, xe] = spans->columns[static_cast<size_t>(y - spans->firstRow)];
    double sx = m[0] * xs + baseX, sy = m[3] * xs + baseY;
    for (int x = xs; x <= xe; ++x, sx += m[0], sy += m[3]) {
      uint8_t* out = dst.pixel(x, y);
      switch (filter) {
        case IPPI_INTER_NN:
          nearestAt(src, sx, sy, out);
          break;
        case IPPI_INTER_LINEAR:
          if (src.kind == Kind::u8c1)
            linearFloat8uC1At(src, sx, sy, out);
          else if (src.kind == Kind::u8c4)
            linearFixedAt(src, sx, sy, 524288, out);
          else
            linear16uC4At(src, sx, sy, out);
          break;
        case IPPI_INTER_CUBIC:
          cubicAt(src, static_cast<float>(sx), static_cast<float>(sy), out);
          break;
        default:
          catmullRomAt(src, sx, sy, out);
      }
    }
  }
  if (interpolation & IPPI_SMOOTH_EDGE) smoothBorder(dst, quad, firstOf(dstRoi), lastOf(dstRoi), winding);
  return ippStsNoErr;
}

IppStatus warpPerspective(const Image& src, IppiSize srcSize, IppiRect srcRoi, Image& dst, IppiRect dstRoi,
                          const Perspective& c, int interpolation) {
  if (!sizesValid(srcSize, srcRoi, dstRoi)) return ippStsSizeErr;
  if (src.step() <= 0 || dst.step() <= 0) return ippStsStepErr;
  unsigned filter = static_cast<unsigned>(interpolation) & 0x7FFFFFFFu;
  if (filter != 1 && filter != 2 && filter != 4) return ippStsInterpolationErr;
  if (nearlySingular(c[0][0], c[0][1], c[1][0], c[1][1]) || std::fabs(c[2][2]) <= 1e-200) return ippStsCoeffErr;
  filter = lowerFilter(filter, srcSize);
  IppiRect region;
  if (const IppStatus cut = cutRegion(srcRoi, srcSize, &region); cut != ippStsNoErr) return cut;
  const Quad corners = cornersOf(region);
  Quad quad;
  for (int i = 0; i < 4; ++i) {
    const double x = corners[i][0], y = corners[i][1];
    const double den = c[2][0] * x + c[2][1] * y + c[2][2];
    quad[i][0] = (c[0][0] * x + c[0][1] * y + c[0][2]) / den;
    quad[i][1] = (c[1][0] * x + c[1][1] * y + c[1][2]) / den;
  }
  const int check = checkQuad(quad);
  if (check == -4 || check == -5) return ippStsCoeffErr;
  // The adjugate.
  const double i0 = c[1][1] * c[2][2] - c[1][2] * c[2][1], i1 = c[0][2] * c[2][1] - c[0][1] * c[2][2];
  const double i2 = c[0][1] * c[1][2] - c[0][2] * c[1][1], i3 = c[1][2] * c[2][0] - c[1][0] * c[2][2];
  const double i4 = c[0][0] * c[2][2] - c[0][2] * c[2][0], i5 = c[0][2] * c[1][0] - c[0][0] * c[1][2];
  const double i6 = c[1][0] * c[2][1] - c[1][1] * c[2][0], i7 = c[0][1] * c[2][0] - c[0][0] * c[2][1];
  const double i8 = c[0][0] * c[1][1] - c[0][1] * c[1][0];
  const bool winding =
      (quad[3][0] - quad[2][0]) * (quad[0][1] - quad[3][1]) - (quad[0][0] - quad[3][0]) * (quad[3][1] - quad[2][1]) > 0;
  const std::optional<Spans> spans = spansOf(quad, firstOf(dstRoi), lastOf(dstRoi), winding);
  if (!spans) return ippStsWrongIntersectQuad;
  double rowX = i1 * spans->firstRow + i2, rowY = i4 * spans->firstRow + i5, rowD = i7 * spans->firstRow + i8;
  for (int y = spans->firstRow; y <= spans->lastRow(); ++y, rowX += i1, rowY += i4, rowD += i7) {
    const auto [xs, xe] = spans->columns[static_cast<size_t>(y - spans->firstRow)];
    if (xs > xe) continue;
    // The points of the row: two pixels share the reciprocal of their denominators' product.
    const int count = xe - xs + 1;
    std::vector<float> px(static_cast<size_t>(count)), py(static_cast<size_t>(count));
    double nx = i0 * xs + rowX, ny = i3 * xs + rowY, den = i6 * xs + rowD;
    int k = 0;
    for (; k + 1 < count; k += 2) {
      const double nx1 = nx + i0, ny1 = ny + i3, den1 = den + i6;
      const double reciprocal = 1 / (den * den1);
      px[k] = static_cast<float>(nx * den1 * reciprocal);
      py[k] = static_cast<float>(ny * den1 * reciprocal);
      px[k + 1] = static_cast<float>(nx1 * den * reciprocal);
      py[k + 1] = static_cast<float>(ny1 * den * reciprocal);
      nx = nx1 + i0, ny = ny1 + i3, den = den1 + i6;
    }
    if (k < count) {
      const double reciprocal = 1 / den;
      px[k] = static_cast<float>(nx * reciprocal);
      py[k] = static_cast<float>(ny * reciprocal);
    }
    for (int j = 0; j < count; ++j) {
      uint8_t* out = dst.pixel(xs + j, y);
      const float sx = px[j], sy = py[j];
      if (filter == IPPI_INTER_NN) {
        nearestVectorAt(src, sx, sy, out);
      } else if (filter == IPPI_INTER_LINEAR) {
        linearFixedAt(src, sx, sy, 33, out);
      } else {
        const bool outside = sx < -1 || sx > srcSize.width || sy < -1 || sy > srcSize.height;
        if (!outside) cubicAt(src, sx, sy, out);
      }
    }
  }
  if (interpolation & IPPI_SMOOTH_EDGE) smoothBorder(dst, quad, firstOf(dstRoi), lastOf(dstRoi), winding);
  return ippStsNoErr;
}

double normalisedAngle(double angle) {
  const int turns = static_cast<int>(angle / 360);
  const double a = angle - turns * 360.0;
  return a < 0 ? a + 360 : a;
}

Affine rotationCoefficients(double angle, double xShift, double yShift) {
  const double a = normalisedAngle(angle);
  double c = std::cos(a / 180 * 3.141592653589793), s = std::sin(a / 180 * 3.141592653589793);
  if (a == 90) c = 0, s = 1;
  if (a == 180) c = -1, s = 0;
  if (a == 270) c = 0, s = -1;
  return {{{c, s, xShift}, {-s, c, yShift}}};
}

IppStatus rotate(const Image& src, IppiSize srcSize, IppiRect srcRoi, Image& dst, IppiRect dstRoi, double angle,
                 double xShift, double yShift, int interpolation) {
  if (!std::isfinite(angle)) return ippStsOutOfRangeErr;
  const double a = normalisedAngle(angle);
  const bool exact = (a == 90 || a == 180 || a == 270) && xShift == std::floor(xShift) && yShift == std::floor(yShift);
  if (!exact)
    return warpAffine(src, srcSize, srcRoi, dst, dstRoi, rotationCoefficients(angle, xShift, yShift), interpolation);
  if (srcSize.width < 1 || srcSize.height < 1 || srcRoi.x < 0 || srcRoi.y < 0 || srcRoi.width < 1 ||
      srcRoi.height < 1 || dstRoi.x < 0 || dstRoi.y < 0 || dstRoi.width < 1 || dstRoi.height < 1)
    return ippStsSizeErr;
  if (srcRoi.x >= srcSize.width || srcRoi.y >= srcSize.height) return ippStsWrongIntersectROI;
  const int x0 = srcRoi.x, y0 = srcRoi.y;
  const int x1 = x0 + std::min(srcRoi.width, srcSize.width - x0) - 1;
  const int y1 = y0 + std::min(srcRoi.height, srcSize.height - y0) - 1;
  const int xs = static_cast<int>(xShift), ys = static_cast<int>(yShift);
  const int turn = static_cast<int>(a + 0.1);
  // Every destination pixel of the region whose source, by the turn's inverse, lies in the cut
  // source region takes that source pixel.
  bool any = false;
  for (int y = dstRoi.y; y < dstRoi.y + dstRoi.height; ++y)
    for (int x = dstRoi.x; x < dstRoi.x + dstRoi.width; ++x) {
      int sx, sy;
      if (turn == 90)
        sx = ys - y, sy = x - xs;
      else if (turn == 180)
        sx = xs - x, sy = ys - y;
      else
        sx = y - ys, sy = xs - x;
      if (sx < x0 || sx > x1 || sy < y0 || sy > y1) continue;
      any = true;
      std::memcpy(dst.pixel(x, y), src.pixel(sx, sy), static_cast<size_t>(pixelBytesOf(src.kind)));
    }
  return any ? ippStsNoErr : ippStsWrongIntersectROI;
}

IppStatus perspectiveTransform(IppiRect roi, const Quad& q, Perspective& c) {
  if (roi.x < 0 || roi.y < 0 || roi.width < 1 || roi.height < 1) return ippStsSizeErr;
  const int check = checkQuad(q);
  if (check == -4 || check == -5) return ippStsQuadErr;
  if (roi.width - 1 < 1 || roi.height - 1 < 1) return ippStsRectErr;
  const double dx1 = q[2][0] - q[1][0], dy1 = q[2][1] - q[1][1];
  const double dx2 = q[3][0] - q[2][0], dy2 = q[3][1] - q[2][1];
  const double sx = q[0][0] - q[3][0] + dx1, sy = q[0][1] - q[3][1] + dy1;
  const double den = dx2 * dy1 - dx1 * dy2;
  const double g = (dy2 * sx - dx2 * sy) / den, h = (dy1 * sx - dx1 * sy) / den;
  const double a = q[1][0] - q[0][0] + g * q[1][0], b = q[3][0] - q[0][0] + h * q[3][0], cc = q[0][0];
  const double d = q[1][1] - q[0][1] + g * q[1][1], e = q[3][1] - q[0][1] + h * q[3][1], f = q[0][1];
  const double w = roi.width - 1, hh = roi.height - 1, left = roi.x, top = roi.y;
  c[0][0] = a / w, c[0][1] = b / hh, c[1][0] = d / w, c[1][1] = e / hh, c[2][0] = g / w, c[2][1] = h / hh;
  c[0][2] = cc - left * c[0][0] - top * c[0][1];
  c[1][2] = f - left * c[1][0] - top * c[1][1];
  c[2][2] = 1 - left * c[2][0] - top * c[2][1];
  return ippStsNoErr;
}

}  // namespace warptest
