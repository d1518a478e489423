#ifndef QV_PRIMITIVES_DATA_RANDOM_GENERATOR_H
#define QV_PRIMITIVES_DATA_RANDOM_GENERATOR_H

// The library's random generator: a lagged subtract-with-carry sequence added to a linear
// congruential sequence, all in 32 bits with wraparound. The uniform generators and the
// Gaussian noise share it.

#include <cstdint>

#include "primitives/common/tier_util.h"

namespace QV_TIER {

struct RandomGenerator {
  uint32_t lcg;    // linear congruential sequence
  uint32_t a;      // newest value of the lagged sequence
  uint32_t b;      // the one before
  uint32_t c;      // the one before that
  uint32_t carry;  // 0 or 0xFFFFFFFF (-1)
};

constexpr uint32_t kLcgMultiplier = 69069u;
constexpr uint32_t kLcgIncrement = 1013904243u;
constexpr uint32_t kLcgStart = 1131199209u;

QV_INLINE RandomGenerator seededGenerator(uint32_t seed) {
  RandomGenerator g;
  g.lcg = kLcgStart;
  g.a = seed;
  g.b = seed * kLcgMultiplier + kLcgIncrement;
  g.c = g.b * kLcgMultiplier + kLcgIncrement;
  g.carry = 0xFFFFFFFFu;
  return g;
}

// One step: the next signed 32-bit output. The borrow test is made on the difference before
// the 18 is taken off.
QV_INLINE int32_t nextRandom(RandomGenerator& g) {
  const uint32_t t = g.b - g.c + g.carry;
  uint32_t fresh;
  if (static_cast<int32_t>(t) < 0) {
    fresh = t - 18u;
    g.carry = 0xFFFFFFFFu;
  } else {
    fresh = t;
    g.carry = 0;
  }
  g.lcg = g.lcg * kLcgMultiplier + kLcgIncrement;
  g.c = g.b;
  g.b = g.a;
  g.a = fresh;
  return static_cast<int32_t>(fresh + g.lcg);
}

}  // namespace QV_TIER

#endif
