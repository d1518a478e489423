#include "sqrpixel/sqrpixel_reference.h"

#include <algorithm>
#include <cmath>

namespace m7 {
extern const float tblLanczos3[304];
}

namespace sqrref {
namespace {

constexpr uint32_t kFilterMask = 0x1FFFFFFF;

int clampTo(int v, int last) { return v < 0 ? 0 : v > last ? last : v; }

int roundEven(float v, int maximum) {
  const int r = static_cast<int>(std::nearbyint(v));
  return std::clamp(r, 0, maximum);
}

bool knownFilter(uint32_t f) { return f == 1 || f == 2 || f == 4 || f == 5 || f == 6 || f == 7 || f == 8 || f == 16; }

int flagCount(uint32_t word) { return ((word >> 31) & 1) + ((word >> 30) & 1) + ((word >> 29) & 1); }

// ---- positions and kernels ----

double cubic(uint32_t kind, double x) {
  if (x >= 2.0) return 0.0;
  if (kind == 4) return x < 1 ? (0.5 * x * x - x - 0.5) * x + 1.0 : (-x * x / 6.0 + x - 11.0 / 6.0) * x + 1.0;
  if (kind == 5) return x < 1 ? (0.5 * x * x - x) * x + 2.0 / 3.0 : (-x * x / 6.0 + x) * x + (4.0 / 3.0 - 2.0 * x);
  if (kind == 6) return x < 1 ? (1.5 * x - 2.5) * x * x + 1.0 : ((-0.5 * x + 2.5) * x - 4.0) * x + 2.0;
  return x < 1 ? (0.95 * x - 1.7) * x * x + 5.0 / 6.0 : ((-23.0 / 60.0 * x + 2.0) * x - 3.4) * x + 28.0 / 15.0;
}

// Source position of destination pixel i for the interpolating filters.
double position(int i, double inverse, double origin) { return (i + 0.5) * inverse + (origin - 0.5); }

struct Taps {
  int first;   // source index of the first tap
  float w[6];  // the weights (linear: w[0] is the fraction)
};

Taps tapsOf(uint32_t kind, int i, double inverse, double origin) {
  const double x = position(i, inverse, origin);
  const double index = std::floor(x);
  const float f = static_cast<float>(x - index);
  Taps t{};
  if (kind == 2) {
    t.first = static_cast<int>(index);
    t.w[0] = f;
  } else if (kind == 16) {
    t.first = static_cast<int>(index) - 2;
    float sum = 0.0f;
    const float* table = lanczosTable();
    for (int k = 0; k < 6; ++k) {
      const float d = std::fabs(static_cast<float>(k - 2) - f);
      const float s = std::min(d, 3.0f) * 100.0f;
      const int n = static_cast<int>(s);
      t.w[k] = table[n] + (table[n + 1] - table[n]) * (s - static_cast<float>(n));
      sum += t.w[k];
    }
    for (int k = 0; k < 6; ++k) t.w[k] /= sum;
  } else {
    t.first = static_cast<int>(index) - 1;
    for (int k = 0; k < 4; ++k) t.w[k] = static_cast<float>(cubic(kind, std::fabs((k - 1) - static_cast<double>(f))));
  }
  return t;
}

float combine(uint32_t kind, const float* p, const float* w) {
  if (kind == 2) return p[0] + (p[1] - p[0]) * w[0];
  if (kind == 16) return ((p[0] * w[0] + p[1] * w[1]) + (p[2] * w[2] + p[3] * w[3])) + (p[4] * w[4] + p[5] * w[5]);
  return (p[0] * w[0] + p[1] * w[1]) + (p[2] * w[2] + p[3] * w[3]);
}

int tapCount(uint32_t kind) { return kind == 2 ? 2 : kind == 16 ? 6 : 4; }

// ---- the filters, one destination sample at a time ----

int nearestIndex(int i, double inverse, double origin, int last) {
  const double x = (i + 0.5) * inverse + origin - 1e-10;
  // Truncation toward zero, kept inside the image.
  return clampTo(x >= last ? last : static_cast<int>(x), last);
}

int nearest(const Samples& s, const Geometry& g, int x, int y, int c) {
  return s.at(nearestIndex(x, g.xInverse, g.xOrigin, s.width - 1), nearestIndex(y, g.yInverse, g.yOrigin, s.height - 1),
              c);
}

int q14(double x) { return static_cast<int>((x - std::floor(x)) * 16384.0 + 1e-7); }

int linear8(const Samples& s, const Geometry& g, int x, int y, int c) {
  const double px = position(x, g.xInverse, g.xOrigin), py = position(y, g.yInverse, g.yOrigin);
  const int ix = static_cast<int>(std::floor(px)), iy = static_cast<int>(std::floor(py));
  const int wx = q14(px), wy = q14(py);
  const bool columnEdge = ix < 0 || ix + 1 > s.width - 1;
  const bool rowEdge = iy < 0 || iy + 1 > s.height - 1;
  if (rowEdge) return (s.clamped(ix, iy, c) * (16384 - wx) + s.clamped(ix + 1, iy, c) * wx + 8192) >> 14;
  if (columnEdge) return (s.clamped(ix, iy, c) * (16384 - wy) + s.clamped(ix, iy + 1, c) * wy + 8192) >> 14;
  const int r0 = (s.at(ix, iy, c) * (16384 - wx) + s.at(ix + 1, iy, c) * wx + 128) >> 8;
  const int r1 = (s.at(ix, iy + 1, c) * (16384 - wx) + s.at(ix + 1, iy + 1, c) * wx + 128) >> 8;
  return std::clamp((r0 * (16384 - wy) + r1 * wy + 0x80000) >> 20, 0, 255);
}

int interpolated(const Samples& s, const Geometry& g, int x, int y, int c) {
  const Taps tx = tapsOf(g.kind, x, g.xInverse, g.xOrigin);
  const Taps ty = tapsOf(g.kind, y, g.yInverse, g.yOrigin);
  const int n = tapCount(g.kind);
  float rows[6];
  for (int k = 0; k < n; ++k) {
    float p[6];
    for (int m = 0; m < n; ++m) p[m] = static_cast<float>(s.clamped(tx.first + m, ty.first + k, c));
    rows[k] = combine(g.kind, p, tx.w);
  }
  return roundEven(combine(g.kind, rows, ty.w), s.maximum);
}

// ---- super ----

double fraction(double v) { return v - std::floor(v); }

struct Cell {
  std::vector<int> index;
  std::vector<double> weight;
};

// The cells of one axis, in order: a partly covered first pixel, whole pixels, a partly
// covered last one that the next cell starts with.
std::vector<Cell> cells(int first, int count, double inverse, double origin, double* cover0) {
  const double s = first * inverse + origin;
  const double whole = s >= 0 ? std::floor(s + 1e-10) : std::floor(s - 1e-10);
  int next = static_cast<int>(whole);
  double cover = 1.0 - s + whole;
  *cover0 = cover;
  std::vector<Cell> out(count);
  for (Cell& cell : out) {
    const double c = cover;
    if (c > 1e-10) {
      cell.index.push_back(next++);
      cell.weight.push_back(c);
    }
    const int n = static_cast<int>(std::floor(1e-7 + inverse - c));
    for (int t = 0; t < n; ++t) {
      cell.index.push_back(next++);
      cell.weight.push_back(1.0);
    }
    const double rest = inverse - c - n;
    if (rest >= 1e-7) {
      cell.index.push_back(next);
      cell.weight.push_back(rest);
      cover = 1.0 - rest;
    } else {
      cover = 0.0;
    }
  }
  return out;
}

int truncated(double v, int maximum) { return std::clamp(static_cast<int>(v), 0, maximum); }

void super(const Samples& s, Samples& d, const Geometry& g) {
  double coverX, coverY;
  const std::vector<Cell> cx = cells(g.x0, g.width, g.xInverse, g.xOrigin, &coverX);
  const std::vector<Cell> cy = cells(g.y0, g.height, g.yInverse, g.yOrigin, &coverY);
  const bool whole = fraction(g.xInverse) <= 1e-7 && fraction(g.yInverse) <= 1e-7 && fraction(coverX) <= 1e-7 &&
                     fraction(coverY) <= 1e-7;
  for (int j = 0; j < g.height; ++j)
    for (int i = 0; i < g.width; ++i)
      for (int c = 0; c < s.channels; ++c) {
        double value;
        if (whole) {
          // Whole cells of k pixels from the start: an exact integer sum.
          const int kx = static_cast<int>(g.xInverse), ky = static_cast<int>(g.yInverse);
          uint32_t sum = 0;
          for (int v = 0; v < ky; ++v)
            for (int u = 0; u < kx; ++u)
              sum += static_cast<uint32_t>(s.clamped(cx[0].index[0] + i * kx + u, cy[0].index[0] + j * ky + v, c));
          value = static_cast<double>(sum) * g.area + 0.5;
        } else {
          float total = 0.0f;
          for (size_t u = 0; u < cx[i].index.size(); ++u) {
            float column = 0.0f;
            for (size_t v = 0; v < cy[j].index.size(); ++v)
              column += static_cast<float>(cy[j].weight[v] * s.clamped(cx[i].index[u], cy[j].index[v], c));
            total += static_cast<float>(cx[i].weight[u] * static_cast<double>(column));
          }
          value = static_cast<double>(total) * g.area + 0.5;
        }
        d.at(g.x0 + i, g.y0 + j, c) = truncated(value, s.maximum);
      }
}

// ---- antialiased ----

double base(uint32_t kind) { return kind == 2 ? 1.0 : kind == 16 ? 3.0 : 2.0; }

double kernel(uint32_t kind, double d) {
  if (d >= base(kind)) return 0.0;
  if (kind == 2) return 1.0 - d;
  if (kind == 16) {
    if (d == 0.0) return 1.0;
    const double x = M_PI * d;
    return (std::sin(x) / x) * (std::sin(x / 3.0) / (x / 3.0));
  }
  return cubic(kind, d);
}

struct TapList {
  std::vector<int> index;
  std::vector<float> weight;
};

TapList stretchedTaps(uint32_t kind, int i, double inverse, double origin, int length) {
  double radius = base(kind), scale = 1.0;
  if (inverse >= 1.0) {
    radius = base(kind) * inverse;
    scale = 1.0 / inverse;
  }
  const int taps = static_cast<int>(std::floor(2.0 * radius)) + 1;
  const double c = (i + 0.5) * inverse + origin - 0.5;
  const int first = static_cast<int>(std::ceil(c - radius));
  const int last = static_cast<int>(c + radius);
  std::vector<double> raw(taps);
  double sum = 0.0;
  for (int t = 0; t < taps; ++t) {
    const int k = first + t;
    raw[t] = k <= last ? kernel(kind, std::fabs(c - k) * scale) : 0.0;
    sum += raw[t];
  }
  TapList list;
  for (int t = 0; t < taps; ++t) {
    list.index.push_back(clampTo(first + t, length - 1));
    list.weight.push_back(static_cast<float>(raw[t] / sum));
  }
  return list;
}

// Three products first, then two at a time, then the odd one.
float grouped(const std::vector<float>& terms) {
  float s = (terms[0] + terms[1]) + terms[2];
  size_t k = 3;
  for (; k + 1 < terms.size(); k += 2) s = s + (terms[k] + terms[k + 1]);
  if (k < terms.size()) s = s + terms[k];
  return s;
}

int antialiased(const Samples& s, const Geometry& g, int x, int y, int c) {
  const TapList tx = stretchedTaps(g.kind, x, g.xInverse, g.xOrigin, s.width);
  const TapList ty = stretchedTaps(g.kind, y, g.yInverse, g.yOrigin, s.height);
  std::vector<float> down;
  for (size_t k = 0; k < ty.index.size(); ++k) {
    std::vector<float> across;
    for (size_t m = 0; m < tx.index.size(); ++m)
      across.push_back(static_cast<float>(s.at(tx.index[m], ty.index[k], c)) * tx.weight[m]);
    down.push_back(grouped(across) * ty.weight[k]);
  }
  return roundEven(grouped(down), s.maximum);
}

// ---- edges ----

void edgePass(Samples& d, const Geometry& g, bool smooth) {
  const double fy0 = fraction(g.yMin), fy1 = fraction(g.yMax), fx0 = fraction(g.xMin), fx1 = fraction(g.xMax);
  const double top = fy0 > 1e-10 ? 1 - fy0 : 0, bottom = fy1 + 1e-10 < 1 ? fy1 : 0;
  const double left = fx0 > 1e-10 ? 1 - fx0 : 0, right = fx1 + 1e-10 < 1 ? fx1 : 0;
  const int x0 = g.x0, y0 = g.y0, x1 = g.x0 + g.width, y1 = g.y0 + g.height;
  auto blend = [&](int x, int y, int ex, int ey, double cover) {
    if (cover == std::floor(cover)) return;
    for (int c = 0; c < d.channels; ++c) {
      const double e = d.at(ex, ey, c), old = d.at(x, y, c);
      const double v = smooth ? old + (e - old) * cover : e * cover;
      d.at(x, y, c) = std::clamp(static_cast<int>(static_cast<int64_t>(v + 0.5000001)), 0, d.maximum);
    }
  };
  for (int x = x0; x < x1; ++x) {
    blend(x, y0 - 1, x, y0, top);
    blend(x, y1, x, y1 - 1, bottom);
  }
  for (int y = y0; y < y1; ++y) {
    blend(x0 - 1, y, x0, y, left);
    blend(x1, y, x1 - 1, y, right);
  }
  blend(x0 - 1, y0 - 1, x0, y0, left * top);
  blend(x1, y0 - 1, x1 - 1, y0, right * top);
  blend(x0 - 1, y1, x0, y1 - 1, left * bottom);
  blend(x1, y1, x1 - 1, y1 - 1, right * bottom);
}

int64_t up(int64_t x, int64_t n) { return (x + n - 1) / n * n; }

}  // namespace

int Samples::clamped(int x, int y, int c) const { return at(clampTo(x, width - 1), clampTo(y, height - 1), c); }

const float* lanczosTable() { return m7::tblLanczos3; }

IppStatus prelude(const Call& call, Geometry* g) {
  const IppiRect s = call.srcRoi, d = call.dstRoi;
  if (call.srcSize.width <= 0 || call.srcSize.height <= 0 || s.x < 0 || s.y < 0 || s.width <= 0 || s.height <= 0 ||
      d.x < 0 || d.y < 0 || d.width <= 0 || d.height <= 0)
    return ippStsSizeErr;
  if (call.xFactor <= 0 || call.yFactor <= 0) return ippStsResizeFactorErr;
  const uint32_t filter = call.interpolation & kFilterMask;
  if (!knownFilter(filter) || flagCount(call.interpolation) > 1) return ippStsInterpolationErr;
  if (filter == 8 && (call.xFactor > 1 || call.yFactor > 1)) return ippStsResizeFactorErr;
  g->area = filter == 8 ? call.xFactor * call.yFactor : 0.0;
  const int w = call.srcSize.width, h = call.srcSize.height;
  g->kind = filter;
  if (std::min(w, h) < 4 && (filter == 4 || filter == 5 || filter == 6 || filter == 7 || filter == 16))
    g->kind = 2;
  else if (std::min(w, h) < 6 && filter == 16)
    g->kind = 4;
  if (s.x >= w || s.y >= h) return ippStsWrongIntersectROI;
  const int rw = std::min(s.width, w - s.x), rh = std::min(s.height, h - s.y);
  g->xMin = std::max(s.x * call.xFactor + call.xShift, static_cast<double>(d.x));
  g->xMax = std::min((s.x + rw) * call.xFactor + call.xShift, static_cast<double>(d.x) + d.width);
  g->yMin = std::max(s.y * call.yFactor + call.yShift, static_cast<double>(d.y));
  g->yMax = std::min((s.y + rh) * call.yFactor + call.yShift, static_cast<double>(d.y) + d.height);
  g->smooth = (call.interpolation >> 31) & 1;
  g->subpixel = (call.interpolation >> 30) & 1;
  g->antialiasing = (call.interpolation >> 29) & 1;
  int x1, y1;
  if (g->smooth || g->subpixel) {
    g->x0 = static_cast<int>(std::ceil(g->xMin - 1e-10));
    x1 = static_cast<int>(std::floor(g->xMax + 1e-10));
    g->y0 = static_cast<int>(std::ceil(g->yMin - 1e-10));
    y1 = static_cast<int>(std::floor(g->yMax + 1e-10));
  } else {
    g->x0 = static_cast<int>(g->xMin + 0.4999999999);
    x1 = static_cast<int>(g->xMax + 0.5000000001);
    g->y0 = static_cast<int>(g->yMin + 0.4999999999);
    y1 = static_cast<int>(g->yMax + 0.5000000001);
  }
  if (g->x0 >= x1 || g->y0 >= y1) return ippStsNoOperation;
  g->width = x1 - g->x0;
  g->height = y1 - g->y0;
  g->xInverse = 1.0 / call.xFactor;
  g->yInverse = 1.0 / call.yFactor;
  g->xOrigin = 0.0 - call.xShift / call.xFactor;
  g->yOrigin = 0.0 - call.yShift / call.yFactor;
  return ippStsNoErr;
}

IppStatus resize(const Samples& src, Samples& dst, const Call& call) {
  Geometry g;
  const IppStatus status = prelude(call, &g);
  if (status != ippStsNoErr) return status;
  const bool plain = g.kind == 1 || g.kind == 8;
  if (g.kind == 8) {
    super(src, dst, g);
  } else {
    for (int j = 0; j < g.height; ++j)
      for (int i = 0; i < g.width; ++i)
        for (int c = 0; c < src.channels; ++c) {
          const int x = g.x0 + i, y = g.y0 + j;
          int v;
          if (g.kind == 1)
            v = nearest(src, g, x, y, c);
          else if (g.antialiasing)
            v = antialiased(src, g, x, y, c);
          else if (g.kind == 2 && src.maximum == 255)
            v = linear8(src, g, x, y, c);
          else
            v = interpolated(src, g, x, y, c);
          dst.at(x, y, c) = v;
        }
  }
  if (g.smooth) edgePass(dst, g, true);
  if (g.subpixel) edgePass(dst, g, false);
  return g.antialiasing && plain ? ippStsNoAntialiasing : ippStsNoErr;
}

IppStatus bufferSize(IppiRect s, IppiRect d, uint32_t channels, uint32_t interpolation, int* size) {
  if (s.x < 0 || s.y < 0 || s.width <= 0 || s.height <= 0 || d.x < 0 || d.y < 0 || d.width <= 0 || d.height <= 0)
    return ippStsSizeErr;
  if (channels != 1 && channels != 3 && channels != 4) return ippStsNumChannelsErr;
  const uint32_t filter = interpolation & kFilterMask;
  if (!knownFilter(filter) || flagCount(interpolation) > 1) return ippStsInterpolationErr;
  const bool aa = (interpolation >> 29) & 1;
  const int64_t dw = d.width, dh = d.height, c = channels;
  const int64_t t = 4 * (up(dw, 16) + up(dh, 16));
  int64_t bytes;
  IppStatus status = ippStsNoErr;
  if (filter == 8) {
    bytes = 8 * c * up(s.width, 16);
    if (aa) status = ippStsNoAntialiasing;
  } else if (filter == 1) {
    bytes = t;
    if (aa) status = ippStsNoAntialiasing;
  } else if (aa) {
    const double b = base(filter);
    const double fx = static_cast<double>(s.width) / dw, fy = static_cast<double>(s.height) / dh;
    const int64_t rx = static_cast<int64_t>(std::ceil(fx >= 1 ? b * fx : b));
    const int64_t ry = static_cast<int64_t>(std::ceil(fy >= 1 ? b * fy : b));
    bytes = 8 * up(dw * s.height * c, 16) + 4 * up(dw * c, 16) + 8 * up((2 * rx + 2) * dw, 16) +
            8 * up((2 * ry + 2) * dh, 16);
  } else if (filter == 2) {
    bytes = t + 4 * (up(dw, 64) + up(dh, 64) + c * ((2 * dw + 127) & ~63));
  } else if (filter == 16) {
    bytes = t + 4 * (up(dw, 32) + up(dh, 32) + ((6 * dw + 191) & ~31) + ((6 * dh + 191) & ~31) +
                     c * ((6 * dw + 191) & ~31));
  } else {
    bytes = t + 4 * (up(dw, 32) + up(dh, 32) + ((4 * dw + 127) & ~31) + ((4 * dh + 127) & ~31) +
                     c * ((4 * dw + 255) & ~63));
  }
  bytes += 16;
  if (bytes >= (int64_t{1} << 31)) {
    *size = 0;
    return ippStsSizeErr;
  }
  *size = static_cast<int>(bytes);
  return status;
}

}  // namespace sqrref
