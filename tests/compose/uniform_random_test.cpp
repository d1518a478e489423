// The uniform generators of each tier (they have no exported entry, so each tier's copy is
// called directly) against the plain reference of the generator.

#include <gtest/gtest.h>

#include <vector>

#include "qvimage/ippcore.h"
#include "qvimage/ipps_random.h"
#include "reference.h"

#define DECLARE_UNIFORM_GENERATORS(tier)                                                                          \
  namespace tier {                                                                                                \
  IppStatus ippsRandUniformInitAlloc_16s(IppsRandUniState_16s** ppState, Ipp16s low, Ipp16s high, unsigned seed); \
  IppStatus ippsRandUniformInitAlloc_32f(IppsRandUniState_32f** ppState, Ipp32f low, Ipp32f high, unsigned seed); \
  IppStatus ippsRandUniform_16s(Ipp16s* pDst, int len, IppsRandUniState_16s* pState);                             \
  IppStatus ippsRandUniform_32f(Ipp32f* pDst, int len, IppsRandUniState_32f* pState);                             \
  IppStatus ippsRandUniformFree_16s(IppsRandUniState_16s* pState);                                                \
  IppStatus ippsRandUniformFree_32f(IppsRandUniState_32f* pState);                                                \
  }

DECLARE_UNIFORM_GENERATORS(m7)
DECLARE_UNIFORM_GENERATORS(u8)
DECLARE_UNIFORM_GENERATORS(y8)
DECLARE_UNIFORM_GENERATORS(e9)

namespace {

struct UniformGenerators {
  const char* tier;
  decltype(&m7::ippsRandUniformInitAlloc_16s) initAlloc16s;
  decltype(&m7::ippsRandUniformInitAlloc_32f) initAlloc32f;
  decltype(&m7::ippsRandUniform_16s) draw16s;
  decltype(&m7::ippsRandUniform_32f) draw32f;
  decltype(&m7::ippsRandUniformFree_16s) free16s;
  decltype(&m7::ippsRandUniformFree_32f) free32f;
};

#define UNIFORM_GENERATORS_OF(tier)                                                                           \
  UniformGenerators {                                                                                         \
#tier, tier::ippsRandUniformInitAlloc_16s, tier::ippsRandUniformInitAlloc_32f, tier::ippsRandUniform_16s, \
        tier::ippsRandUniform_32f, tier::ippsRandUniformFree_16s, tier::ippsRandUniformFree_32f               \
  }

const UniformGenerators kTiers[] = {UNIFORM_GENERATORS_OF(m7), UNIFORM_GENERATORS_OF(u8), UNIFORM_GENERATORS_OF(y8),
                                    UNIFORM_GENERATORS_OF(e9)};

std::vector<int16_t> draw16s(const UniformGenerators& g, int16_t low, int16_t high, uint32_t seed, int count) {
  IppsRandUniState_16s* state = nullptr;
  EXPECT_EQ(g.initAlloc16s(&state, low, high, seed), ippStsNoErr);
  std::vector<int16_t> out(static_cast<size_t>(count));
  EXPECT_EQ(g.draw16s(out.data(), count, state), ippStsNoErr);
  EXPECT_EQ(g.free16s(state), ippStsNoErr);
  return out;
}

std::vector<float> draw32f(const UniformGenerators& g, float low, float high, uint32_t seed, int count) {
  IppsRandUniState_32f* state = nullptr;
  EXPECT_EQ(g.initAlloc32f(&state, low, high, seed), ippStsNoErr);
  std::vector<float> out(static_cast<size_t>(count));
  EXPECT_EQ(g.draw32f(out.data(), count, state), ippStsNoErr);
  EXPECT_EQ(g.free32f(state), ippStsNoErr);
  return out;
}

// The first output of seed 0 worked out by hand from the rules: b = 1013904243,
// c = b * 69069 + 1013904243 = 924302730 (mod 2^32); t = b - c - 1 = 89601512, not negative, so
// the lagged value is t itself and the carry becomes 0; the linear sequence moves to
// 1131199209 * 69069 + 1013904243 = 2061989128 (mod 2^32); the output is their sum, 2151590640,
// read as signed: -2143376656.
TEST(RandomGenerator, ReferenceFirstOutputOfSeedZeroMatchesHandArithmetic) {
  reference::Generator generator(0);
  EXPECT_EQ(generator.b, 1013904243u);
  EXPECT_EQ(generator.c, 924302730u);
  EXPECT_EQ(generator.next(), -2143376656);
  EXPECT_EQ(generator.a, 89601512u);
  EXPECT_EQ(generator.carry, 0u);
  EXPECT_EQ(generator.lcg, 2061989128u);
}

// The borrow branch: seed 1 gives b = 69069 + 1013904243 = 1013973312 and
// c = 1013973312 * 69069 + 1013904243 = 1399862195 (mod 2^32). t = b - c - 1 = 3909078412 reads
// as negative, so the lagged value is t - 18 = 3909078394 and the carry stays -1. The second
// step: b = 1, c = 1013973312, t = 1 - 1013973312 - 1 = 3280993984, negative again: 3280993966.
TEST(RandomGenerator, ReferenceTakesEighteenOffOnABorrow) {
  reference::Generator generator(1);
  EXPECT_EQ(generator.b, 1013973312u);
  EXPECT_EQ(generator.c, 1399862195u);
  generator.next();
  EXPECT_EQ(generator.a, 3909078394u);
  EXPECT_EQ(generator.carry, 0xFFFFFFFFu);
  generator.next();
  EXPECT_EQ(generator.a, 3280993966u);
  EXPECT_EQ(generator.carry, 0xFFFFFFFFu);
}

// A 16-bit draw over the full range [-32768, 32767] reads the outputs almost directly.
TEST(UniformRandom, SixteenBitValuesOfSeveralSeedsMatchTheReference) {
  for (const UniformGenerators& g : kTiers) {
    SCOPED_TRACE(g.tier);
    for (uint32_t seed : {0u, 1u, 12345u, 0x80000000u, 0xFFFFFFFFu}) {
      SCOPED_TRACE(seed);
      EXPECT_EQ(draw16s(g, 0, 1024, seed, 2049), reference::uniform16s(0, 1024, seed, 2049));
      EXPECT_EQ(draw16s(g, -32768, 32767, seed, 333), reference::uniform16s(-32768, 32767, seed, 333));
      EXPECT_EQ(draw16s(g, -5, 5, seed, 7), reference::uniform16s(-5, 5, seed, 7));
    }
  }
}

TEST(UniformRandom, FloatValuesOfSeveralSeedsMatchTheReference) {
  for (const UniformGenerators& g : kTiers) {
    SCOPED_TRACE(g.tier);
    for (uint32_t seed : {0u, 7u, 99999u, 0xDEADBEEFu}) {
      SCOPED_TRACE(seed);
      EXPECT_EQ(draw32f(g, 0.0f, 1.0f, seed, 1025), reference::uniform32f(0.0f, 1.0f, seed, 1025));
      EXPECT_EQ(draw32f(g, -0.37f, 0.61f, seed, 64), reference::uniform32f(-0.37f, 0.61f, seed, 64));
    }
  }
}

TEST(UniformRandom, ValuesStayInsideTheRange) {
  for (const int16_t v : draw16s(kTiers[0], 0, 1024, 0, 4096)) {
    EXPECT_GE(v, 0);
    EXPECT_LT(v, 1024);
  }
  for (const float v : draw32f(kTiers[0], -2.0f, 3.0f, 5, 4096)) {
    EXPECT_GE(v, -2.0f);
    EXPECT_LE(v, 3.0f);
  }
}

// The state is kept: two draws continue one stream, a lone last value included.
TEST(UniformRandom, ALaterCallContinuesTheStream) {
  for (const UniformGenerators& g : kTiers) {
    SCOPED_TRACE(g.tier);
    IppsRandUniState_16s* state16 = nullptr;
    ASSERT_EQ(g.initAlloc16s(&state16, -100, 100, 77), ippStsNoErr);
    std::vector<int16_t> pieces(20);
    EXPECT_EQ(g.draw16s(pieces.data(), 7, state16), ippStsNoErr);
    EXPECT_EQ(g.draw16s(pieces.data() + 7, 13, state16), ippStsNoErr);
    EXPECT_EQ(pieces, reference::uniform16s(-100, 100, 77, 20));
    EXPECT_EQ(g.free16s(state16), ippStsNoErr);

    IppsRandUniState_32f* state32 = nullptr;
    ASSERT_EQ(g.initAlloc32f(&state32, 1.0f, 2.0f, 78), ippStsNoErr);
    std::vector<float> floats(9);
    EXPECT_EQ(g.draw32f(floats.data(), 1, state32), ippStsNoErr);
    EXPECT_EQ(g.draw32f(floats.data() + 1, 8, state32), ippStsNoErr);
    EXPECT_EQ(floats, reference::uniform32f(1.0f, 2.0f, 78, 9));
    EXPECT_EQ(g.free32f(state32), ippStsNoErr);
  }
}

// The 16-bit form cuts low and high to signed 16 bits before anything else.
TEST(UniformRandom, SixteenBitBoundsAreCutToSixteenBits) {
  IppsRandUniState_16s* state = nullptr;
  const int low = 0x10000 + 3;   // cut to 3
  const int high = 0x10000 + 9;  // cut to 9
  ASSERT_EQ(kTiers[0].initAlloc16s(&state, static_cast<Ipp16s>(low), static_cast<Ipp16s>(high), 4), ippStsNoErr);
  std::vector<int16_t> out(50);
  EXPECT_EQ(kTiers[0].draw16s(out.data(), 50, state), ippStsNoErr);
  EXPECT_EQ(out, reference::uniform16s(3, 9, 4, 50));
  EXPECT_EQ(kTiers[0].free16s(state), ippStsNoErr);
}

TEST(UniformRandom, StatusesOfDrawsAndReleases) {
  for (const UniformGenerators& g : kTiers) {
    SCOPED_TRACE(g.tier);
    EXPECT_EQ(g.initAlloc16s(nullptr, 0, 1, 0), ippStsNullPtrErr);
    EXPECT_EQ(g.initAlloc32f(nullptr, 0, 1, 0), ippStsNullPtrErr);
    IppsRandUniState_16s* state16 = nullptr;
    IppsRandUniState_32f* state32 = nullptr;
    ASSERT_EQ(g.initAlloc16s(&state16, 0, 10, 1), ippStsNoErr);
    ASSERT_EQ(g.initAlloc32f(&state32, 0, 10, 1), ippStsNoErr);
    std::vector<int16_t> values16(4, 77);
    std::vector<float> values32(4, 77.0f);
    // Null pointers, then a count below 1, then the tag.
    EXPECT_EQ(g.draw16s(nullptr, 0, state16), ippStsNullPtrErr);
    EXPECT_EQ(g.draw16s(values16.data(), 4, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(g.draw32f(nullptr, 4, state32), ippStsNullPtrErr);
    EXPECT_EQ(g.draw32f(values32.data(), 4, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(g.draw16s(values16.data(), 0, state16), ippStsSizeErr);
    EXPECT_EQ(g.draw32f(values32.data(), -1, state32), ippStsSizeErr);
    auto* wrong16 = reinterpret_cast<IppsRandUniState_16s*>(state32);
    auto* wrong32 = reinterpret_cast<IppsRandUniState_32f*>(state16);
    EXPECT_EQ(g.draw16s(values16.data(), 0, wrong16), ippStsSizeErr);
    EXPECT_EQ(g.draw16s(values16.data(), 4, wrong16), ippStsContextMatchErr);
    EXPECT_EQ(g.draw32f(values32.data(), 4, wrong32), ippStsContextMatchErr);
    EXPECT_EQ(values16, std::vector<int16_t>(4, 77));
    EXPECT_EQ(values32, std::vector<float>(4, 77.0f));
    EXPECT_EQ(g.free16s(wrong16), ippStsContextMatchErr);
    EXPECT_EQ(g.free32f(wrong32), ippStsContextMatchErr);
    EXPECT_EQ(g.free16s(nullptr), ippStsNullPtrErr);
    EXPECT_EQ(g.free32f(nullptr), ippStsNullPtrErr);
    // A refused draw leaves the stream where it was.
    EXPECT_EQ(g.draw16s(values16.data(), 4, state16), ippStsNoErr);
    EXPECT_EQ(values16, reference::uniform16s(0, 10, 1, 4));
    EXPECT_EQ(g.free16s(state16), ippStsNoErr);
    EXPECT_EQ(g.free32f(state32), ippStsNoErr);
  }
}

void* failingMalloc(size_t) { return nullptr; }

// A state that cannot be allocated answers ippStsMemAllocErr and leaves the pointer alone.
TEST(UniformRandom, AFailedAllocationAnswersMemAllocErr) {
  for (const UniformGenerators& g : kTiers) {
    SCOPED_TRACE(g.tier);
    int marker = 0;
    auto* untouched16 = reinterpret_cast<IppsRandUniState_16s*>(&marker);
    auto* untouched32 = reinterpret_cast<IppsRandUniState_32f*>(&marker);
    IppsRandUniState_16s* state16 = untouched16;
    IppsRandUniState_32f* state32 = untouched32;
    void* (*saved)(size_t) = i_malloc;
    i_malloc = failingMalloc;
    const IppStatus status16 = g.initAlloc16s(&state16, 0, 1, 0);
    const IppStatus status32 = g.initAlloc32f(&state32, 0, 1, 0);
    i_malloc = saved;
    EXPECT_EQ(status16, ippStsMemAllocErr);
    EXPECT_EQ(status32, ippStsMemAllocErr);
    EXPECT_EQ(state16, untouched16);
    EXPECT_EQ(state32, untouched32);
  }
}

}  // namespace
