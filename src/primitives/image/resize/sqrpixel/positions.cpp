// Positions and weights of the interpolating filters, one axis at a time.

#include "primitives/image/resize/sqrpixel/positions.h"

namespace QV_TIER {
namespace {

constexpr double kPi = 3.14159265358979323846;

constexpr float lanczos3At(int k) {
  if (k == 0) return 1.0f;
  if (k >= 300) return 0.0f;
  const double x = kPi * k / 100.0;
  return static_cast<float>((__builtin_sin(x) / x) * (__builtin_sin(x / 3.0) / (x / 3.0)));
}

struct Lanczos3Table {
  float values[304];
};

constexpr Lanczos3Table makeLanczos3Table() {
  Lanczos3Table table{};
  for (int k = 0; k < 304; ++k) table.values[k] = lanczos3At(k);
  return table;
}

constexpr Lanczos3Table kLanczos3 = makeLanczos3Table();

}  // namespace

const float tblLanczos3[304] = {
#define QV_L3_ROW(k)                                                                              \
  kLanczos3.values[k], kLanczos3.values[k + 1], kLanczos3.values[k + 2], kLanczos3.values[k + 3], \
      kLanczos3.values[k + 4], kLanczos3.values[k + 5], kLanczos3.values[k + 6], kLanczos3.values[k + 7]
    QV_L3_ROW(0),   QV_L3_ROW(8),   QV_L3_ROW(16),  QV_L3_ROW(24),  QV_L3_ROW(32),  QV_L3_ROW(40),  QV_L3_ROW(48),
    QV_L3_ROW(56),  QV_L3_ROW(64),  QV_L3_ROW(72),  QV_L3_ROW(80),  QV_L3_ROW(88),  QV_L3_ROW(96),  QV_L3_ROW(104),
    QV_L3_ROW(112), QV_L3_ROW(120), QV_L3_ROW(128), QV_L3_ROW(136), QV_L3_ROW(144), QV_L3_ROW(152), QV_L3_ROW(160),
    QV_L3_ROW(168), QV_L3_ROW(176), QV_L3_ROW(184), QV_L3_ROW(192), QV_L3_ROW(200), QV_L3_ROW(208), QV_L3_ROW(216),
    QV_L3_ROW(224), QV_L3_ROW(232), QV_L3_ROW(240), QV_L3_ROW(248), QV_L3_ROW(256), QV_L3_ROW(264), QV_L3_ROW(272),
    QV_L3_ROW(280), QV_L3_ROW(288), QV_L3_ROW(296),
#undef QV_L3_ROW
};

double cubicKernel(Ipp32u kind, double x) {
  if (x >= 2.0) return 0.0;
  const bool inner = x < 1.0;
  switch (kind) {
    case IPPI_INTER_CUBIC:
      return inner ? (0.5 * x * x - x - 0.5) * x + 1.0 : (-x * x / 6.0 + x - 11.0 / 6.0) * x + 1.0;
    case IPPI_INTER_BSPLINE:
      return inner ? (0.5 * x * x - x) * x + 2.0 / 3.0 : (-x * x / 6.0 + x) * x + (4.0 / 3.0 - 2.0 * x);
    case IPPI_INTER_CR:
      return inner ? (1.5 * x - 2.5) * x * x + 1.0 : ((-0.5 * x + 2.5) * x - 4.0) * x + 2.0;
    default:  // IPPI_INTER_B05C03
      return inner ? (0.95 * x - 1.7) * x * x + 5.0 / 6.0 : ((-23.0 / 60.0 * x + 2.0) * x - 3.4) * x + 28.0 / 15.0;
  }
}

int nearestIndex(int i, double inverse, double origin, int last) {
  const double x = (i + 0.5) * inverse + origin - 1e-10;
  if (!(x > 0.0)) return 0;
  if (x >= last) return last;
  return static_cast<int>(x);
}

TapShape tapShapeOf(Ipp32u kind) {
  if (kind == IPPI_INTER_LINEAR) return {2, 0};
  if (kind == IPPI_INTER_LANCZOS) return {6, 2};
  return {4, 1};
}

void cubicWeights(Ipp32u kind, float f, float* weights) {
  const double fd = f;
  for (int k = 0; k < 4; ++k) {
    const double d = (k - 1) - fd;
    weights[k] = static_cast<float>(cubicKernel(kind, d < 0.0 ? -d : d));
  }
}

void lanczosWeights(float f, float* weights) {
  float sum = 0.0f;
  for (int k = 0; k < 6; ++k) {
    const float d = static_cast<float>(k - 2) - f;
    const float a = d < 0.0f ? -d : d;
    const float t = (a < 3.0f ? a : 3.0f) * 100.0f;
    const int i = static_cast<int>(t);
    weights[k] = tblLanczos3[i] + (tblLanczos3[i + 1] - tblLanczos3[i]) * (t - static_cast<float>(i));
    sum += weights[k];
  }
  for (int k = 0; k < 6; ++k) weights[k] = weights[k] / sum;
}

void fillFloatAxis(Ipp32u kind, int start, int count, double inverse, double origin, int* index, float* weights) {
  const int per = kind == IPPI_INTER_LINEAR ? 1 : tapShapeOf(kind).taps;
  for (int i = 0; i < count; ++i) {
    const double x = sourcePosition(start + i, inverse, origin);
    const double whole = __builtin_floor(x);
    const float f = static_cast<float>(x - whole);
    index[i] = static_cast<int>(whole);
    float* w = weights + static_cast<size_t>(i) * per;
    if (kind == IPPI_INTER_LINEAR)
      w[0] = f;
    else if (kind == IPPI_INTER_LANCZOS)
      lanczosWeights(f, w);
    else
      cubicWeights(kind, f, w);
  }
}

void fillFixedAxis(int start, int count, double inverse, double origin, int* index, int* weight) {
  for (int i = 0; i < count; ++i) {
    const double x = sourcePosition(start + i, inverse, origin);
    const double whole = __builtin_floor(x);
    index[i] = static_cast<int>(whole);
    weight[i] = static_cast<int>((x - whole) * 16384.0 + 1e-7);
  }
}

void interiorRange(const int* index, int count, TapShape shape, int length, int* lead, int* end) {
  int first = 0;
  while (first < count && index[first] - shape.before < 0) ++first;
  int last = count;
  while (last > first && index[last - 1] - shape.before + shape.taps - 1 > length - 1) --last;
  *lead = first;
  *end = last;
}

}  // namespace QV_TIER
