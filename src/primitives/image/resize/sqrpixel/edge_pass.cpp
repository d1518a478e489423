// The edge passes: the row and the column just outside the written rectangle, on each side
// where the real rectangle covers part of that pixel, take the nearest pixel inside weighted by
// the coverage. The smooth pass blends it with what the destination held, the subpixel pass
// writes it alone. Corners take the product of their two coverages.

#include "primitives/image/resize/sqrpixel/sqrpixel.h"

namespace QV_TIER {
namespace {

double fractionOf(double v) { return v - __builtin_floor(v); }

// The part of the pixel before a rectangle's first edge that the rectangle covers.
double leadingCoverage(double low) {
  const double f = fractionOf(low);
  return f > 1e-10 ? 1.0 - f : 0.0;
}

// The part of the pixel after a rectangle's last edge that the rectangle covers.
double trailingCoverage(double high) {
  const double f = fractionOf(high);
  return f + 1e-10 < 1.0 ? f : 0.0;
}

bool touches(double coverage) { return coverage != __builtin_floor(coverage); }

template <typename T>
class EdgePass {
 public:
  EdgePass(const ResizeJob& job, bool smooth) : job_(job), smooth_(smooth) {}

  void run() const {
    const ResizeGeometry& g = job_.geometry;
    const double top = leadingCoverage(g.yMin), bottom = trailingCoverage(g.yMax);
    const double left = leadingCoverage(g.xMin), right = trailingCoverage(g.xMax);
    const int w = g.width, h = g.height;
    for (int i = 0; i < w; ++i) {
      blend(i, -1, i, 0, top);
      blend(i, h, i, h - 1, bottom);
    }
    for (int j = 0; j < h; ++j) {
      blend(-1, j, 0, j, left);
      blend(w, j, w - 1, j, right);
    }
    blend(-1, -1, 0, 0, left * top);
    blend(w, -1, w - 1, 0, right * top);
    blend(-1, h, 0, h - 1, left * bottom);
    blend(w, h, w - 1, h - 1, right * bottom);
  }

 private:
  T* pixel(int i, int j) const {
    return reinterpret_cast<T*>(rowAt(job_.dst, job_.dstStep, j)) + static_cast<ptrdiff_t>(i) * job_.channels;
  }

  // Pixel (i, j) outside from pixel (ei, ej) inside, by coverage c.
  void blend(int i, int j, int ei, int ej, double c) const {
    if (!touches(c)) return;
    const double maximum = sizeof(T) == 1 ? 255.0 : 65535.0;
    T* out = pixel(i, j);
    const T* edge = pixel(ei, ej);
    for (int s = 0; s < job_.channels; ++s) {
      const double e = edge[s], old = out[s];
      double v = smooth_ ? old + (e - old) * c : e * c;
      v = static_cast<double>(static_cast<int64_t>(v + 0.5000001));
      out[s] = static_cast<T>(v < 0.0 ? 0.0 : v > maximum ? maximum : v);
    }
  }

  const ResizeJob& job_;
  bool smooth_;
};

}  // namespace

void ownpiEdgePass(const ResizeJob& job, bool smooth) {
  if (job.dataType == 1)
    EdgePass<Ipp16u>(job, smooth).run();
  else
    EdgePass<Ipp8u>(job, smooth).run();
}

}  // namespace QV_TIER
