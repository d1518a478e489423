// What lives inside the tiers: the in-place mirrors, called directly, and the decision to
// bypass the cache, with the pixels of the bypassing road.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/cpu_state.h"
#include "geometry/mirror_reference.h"
#include "qvimage/qvimage.h"
#include "support/images.h"
#include "support/tiers.h"

#define QV_DECLARE_TIER_MIRROR(tier)                                                     \
  namespace tier {                                                                       \
  IppStatus ippiMirror_8u_C4IR(Ipp8u* pSrcDst, int step, IppiSize roi, IppiAxis flip);   \
  IppStatus ippiMirror_16u_C4IR(Ipp16u* pSrcDst, int step, IppiSize roi, IppiAxis flip); \
  bool owniMirrorBypassesCache(int traffic);                                             \
  }
QV_DECLARE_TIER_MIRROR(m7)
QV_DECLARE_TIER_MIRROR(u8)
QV_DECLARE_TIER_MIRROR(y8)
QV_DECLARE_TIER_MIRROR(e9)

namespace {

struct TierMirror {
  const char* name;
  IppStatus (*mirror8u)(Ipp8u*, int, IppiSize, IppiAxis);
  IppStatus (*mirror16u)(Ipp16u*, int, IppiSize, IppiAxis);
  bool (*bypassesCache)(int);
};

const TierMirror kTiers[] = {
    {"m7", m7::ippiMirror_8u_C4IR, m7::ippiMirror_16u_C4IR, m7::owniMirrorBypassesCache},
    {"u8", u8::ippiMirror_8u_C4IR, u8::ippiMirror_16u_C4IR, u8::owniMirrorBypassesCache},
    {"y8", y8::ippiMirror_8u_C4IR, y8::ippiMirror_16u_C4IR, y8::owniMirrorBypassesCache},
    {"e9", e9::ippiMirror_8u_C4IR, e9::ippiMirror_16u_C4IR, e9::owniMirrorBypassesCache},
};

// Sets the remembered cache measurement for the life of the object, then restores it.
class KnownCache {
 public:
  KnownCache(int size, int status) : savedSize_(cacheSize), savedStatus_(ownStatus) {
    cacheSize = size;
    ownStatus = status;
  }
  ~KnownCache() {
    cacheSize = savedSize_;
    ownStatus = savedStatus_;
  }

 private:
  int savedSize_, savedStatus_;
};

bool runsOnThisProcessor(const TierMirror& tier) {
  return tier.name != std::string("e9") || __builtin_cpu_supports("avx");
}

TEST(MirrorTiers, InPlaceFormsOfEveryTierMirror) {
  for (const TierMirror& tier : kTiers) {
    if (!runsOnThisProcessor(tier)) continue;
    SCOPED_TRACE(tier.name);
    for (int axis : {0, 1, 2})
      for (int width : {2, 3, 9, 18})
        for (int height : {2, 5, 6}) {
          qvtest::TestImage image8(width, height, 4, 8, 4), image16(width, height, 8, 8, 2);
          image8.fillRandom(static_cast<uint32_t>(axis + width + height));
          image16.fillRandom(static_cast<uint32_t>(axis * width * height));
          const std::vector<uint8_t> before8 = image8.pixels(), before16 = image16.pixels();
          EXPECT_EQ(tier.mirror8u(image8.data(), image8.step(), image8.size(), axis), ippStsNoErr);
          EXPECT_EQ(tier.mirror16u(reinterpret_cast<Ipp16u*>(image16.data()), image16.step(), image16.size(), axis),
                    ippStsNoErr);
          EXPECT_EQ(image8.pixels(), qvtest::mirroredPixels(before8, width, height, 4, axis));
          EXPECT_EQ(image16.pixels(), qvtest::mirroredPixels(before16, width, height, 8, axis));
          EXPECT_TRUE(image8.surroundingsIntact());
          EXPECT_TRUE(image16.surroundingsIntact());
        }
  }
}

TEST(MirrorTiers, InPlaceStatusesInOrder) {
  for (const TierMirror& tier : kTiers) {
    if (!runsOnThisProcessor(tier)) continue;
    SCOPED_TRACE(tier.name);
    qvtest::TestImage image(3, 3, 4);
    image.fillRandom(9);
    const std::vector<uint8_t> before = image.allBytes();
    EXPECT_EQ(tier.mirror8u(nullptr, 12, {0, 0}, 9), ippStsNullPtrErr);
    EXPECT_EQ(tier.mirror16u(nullptr, 24, {0, 0}, 9), ippStsNullPtrErr);
    EXPECT_EQ(tier.mirror8u(image.data(), image.step(), {0, 3}, 9), ippStsSizeErr);
    EXPECT_EQ(tier.mirror8u(image.data(), image.step(), {3, 3}, 9), ippStsMirrorFlipErr);
    EXPECT_EQ(tier.mirror8u(image.data(), image.step(), {3, 1}, ippAxsHorizontal), ippStsSizeErr);
    EXPECT_EQ(tier.mirror8u(image.data(), image.step(), {1, 3}, ippAxsVertical), ippStsSizeErr);
    EXPECT_EQ(tier.mirror8u(image.data(), image.step(), {3, 1}, ippAxsBoth), ippStsSizeErr);
    EXPECT_EQ(image.allBytes(), before);
  }
}

TEST(MirrorTiers, CacheIsBypassedOnlyAboveOneMebibyteAndTheKnownCacheSize) {
  for (const TierMirror& tier : kTiers) {
    SCOPED_TRACE(tier.name);
    {
      KnownCache cache(0, ippStsNoErr);
      EXPECT_FALSE(tier.bypassesCache(1048576));  // not above 1 MiB
      EXPECT_TRUE(tier.bypassesCache(1048577));
      EXPECT_FALSE(tier.bypassesCache(-8));  // a traffic that wrapped negative
    }
    {
      KnownCache cache(4 << 20, ippStsNoErr);
      EXPECT_FALSE(tier.bypassesCache((4 << 20) - 1));
      EXPECT_TRUE(tier.bypassesCache(4 << 20));  // at least the cache size
    }
    {
      KnownCache cache(0, ippStsNotSupportedCpu);  // no cache size known
      EXPECT_FALSE(tier.bypassesCache(0x7FFFFFFF));
    }
    {
      KnownCache cache(1 << 20, ippStsUnknownCacheSize);
      EXPECT_FALSE(tier.bypassesCache(64 << 20));
    }
  }
}

// Traffic above 1 MiB with a small known cache: the bypassing road, on destinations that the
// 16-byte alignment can and cannot be reached on.
TEST(MirrorTiers, BypassingRoadWritesTheSamePixels) {
  KnownCache cache(1 << 20, ippStsNoErr);
  for (int bits : {8, 16})
    for (int axis : {0, 1, 2})
      for (int dstOffset : {0, 4, 3}) {
        SCOPED_TRACE(testing::Message() << bits << " bits, axis " << axis << ", offset " << dstOffset);
        const int pixelBytes = bits == 8 ? 4 : 8;
        const int width = bits == 8 ? 257 : 131;  // traffic: 257*8*520 and 131*16*520, both above 1 MiB
        const int height = 520;
        qvtest::expectSameOnEveryTier([&] {
          qvtest::TestImage src(width, height, pixelBytes, 4, 1);
          qvtest::TestImage dst(width, height, pixelBytes, 12, dstOffset);
          src.fillRandom(static_cast<uint32_t>(bits + axis));
          IppStatus status;
          if (bits == 8)
            status = ippiMirror_8u_C4R(src.data(), src.step(), dst.data(), dst.step(), dst.size(), axis);
          else
            status = ippiMirror_16u_C4R(reinterpret_cast<const Ipp16u*>(src.data()), src.step(),
                                        reinterpret_cast<Ipp16u*>(dst.data()), dst.step(), dst.size(), axis);
          EXPECT_EQ(status, ippStsNoErr);
          EXPECT_EQ(dst.pixels(), qvtest::mirroredPixels(src.pixels(), width, height, pixelBytes, axis));
          EXPECT_TRUE(dst.surroundingsIntact());
          return dst.pixels();
        });
      }
}

}  // namespace
