// The table of cubic weights, computed at compile time in exact integer arithmetic.
//
// With u = t / 512: w0 = -(u-1)(u-2)(u-3)/6 and w1 = u(u-2)(u-3)/2, times 16384, are
// -(t-512)(t-1024)(t-1536) / 49152 and t(t-1024)(t-1536) / 16384; neither quotient ever falls
// exactly half way between two integers, so rounding to the nearest is unambiguous.

#include "primitives/image/geometry/warp/interpolators.h"

namespace QV_TIER {
namespace {

constexpr long long roundedQuotient(long long numerator, long long denominator) {
  const long long half = denominator / 2;
  return numerator >= 0 ? (numerator + half) / denominator : -((-numerator + half) / denominator);
}

constexpr CubicWeightTable makeCubicTable() {
  CubicWeightTable table{};
  for (long long t = 0; t <= 1536; ++t) {
    table.entries[t][0] = static_cast<Ipp16s>(roundedQuotient(-(t - 512) * (t - 1024) * (t - 1536), 49152));
    table.entries[t][1] = static_cast<Ipp16s>(roundedQuotient(t * (t - 1024) * (t - 1536), 16384));
  }
  return table;
}

}  // namespace

constexpr CubicWeightTable ownpi_cubicWeights = makeCubicTable();

static_assert(ownpi_cubicWeights.entries[0][0] == 16384 && ownpi_cubicWeights.entries[0][1] == 0,
              "u = 0 takes the first tap alone");
static_assert(ownpi_cubicWeights.entries[512][0] == 0 && ownpi_cubicWeights.entries[512][1] == 16384,
              "u = 1 takes the second tap alone");
static_assert(ownpi_cubicWeights.entries[1536][0] == 0 && ownpi_cubicWeights.entries[1536][1] == 0,
              "u = 3 leaves the first two taps out");

}  // namespace QV_TIER
