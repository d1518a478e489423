// ippsAdler32_8u and ippsCRC32_8u against the bitwise references, on every road.

#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "codec/checksum_roads.h"
#include "codec/codec_support.h"
#include "qvimage/ippcore.h"
#include "qvimage/ipps_checksum.h"
#include "support/tiers.h"

namespace {

using codectest::Bytes;
using codectest::OffsetCopy;
using codectest::referenceAdler32;
using codectest::referenceCrc32;

uint32_t adlerOf(const uint8_t* data, size_t length, uint32_t start) {
  Ipp32u value = start;
  EXPECT_EQ(ippsAdler32_8u(data, static_cast<Ipp32u>(length), &value), ippStsNoErr);
  return value;
}

uint32_t crcOf(const uint8_t* data, size_t length, uint32_t start) {
  Ipp32u value = start;
  EXPECT_EQ(ippsCRC32_8u(data, static_cast<int>(length), &value), ippStsNoErr);
  return value;
}

// The reference values of data[0..length) for each length, from the two start values used.
struct ReferenceValues {
  std::vector<uint32_t> adlerFrom1, adlerFromHigh, crcFrom0, crcFromPattern;
};

constexpr uint32_t kHighAdlerStart = 0xFFF0FFF0u;
constexpr uint32_t kPatternCrcStart = 0x12345678u;

ReferenceValues referencesOf(const Bytes& data, const std::vector<size_t>& lengths) {
  ReferenceValues values;
  for (size_t length : lengths) {
    values.adlerFrom1.push_back(referenceAdler32(1, data.data(), length));
    values.adlerFromHigh.push_back(referenceAdler32(kHighAdlerStart, data.data(), length));
    values.crcFrom0.push_back(referenceCrc32(0, data.data(), length));
    values.crcFromPattern.push_back(referenceCrc32(kPatternCrcStart, data.data(), length));
  }
  return values;
}

// Both checksums of data[0..length) from every alignment 0..63, against the references, with
// two start values each.
void expectBothFromEveryAlignment(const Bytes& data, const std::vector<size_t>& lengths,
                                  const ReferenceValues& expected) {
  for (size_t offset = 0; offset < 64; ++offset) {
    const OffsetCopy copy(data, offset);
    for (size_t k = 0; k < lengths.size(); ++k) {
      const size_t length = lengths[k];
      ASSERT_EQ(adlerOf(copy.data(), length, 1), expected.adlerFrom1[k])
          << "Adler-32, length " << length << ", offset " << offset;
      ASSERT_EQ(adlerOf(copy.data(), length, kHighAdlerStart), expected.adlerFromHigh[k])
          << "Adler-32 from 0xFFF0FFF0, length " << length << ", offset " << offset;
      if (length == 0) continue;
      ASSERT_EQ(crcOf(copy.data(), length, 0), expected.crcFrom0[k])
          << "CRC-32, length " << length << ", offset " << offset;
      ASSERT_EQ(crcOf(copy.data(), length, kPatternCrcStart), expected.crcFromPattern[k])
          << "CRC-32 from 0x12345678, length " << length << ", offset " << offset;
    }
  }
}

std::vector<size_t> lengthsUpTo(size_t last) {
  std::vector<size_t> lengths;
  for (size_t n = 0; n <= last; ++n) lengths.push_back(n);
  return lengths;
}

TEST(Checksums, EveryLengthUpTo300FromEveryAlignmentOnEveryRoad) {
  const Bytes data = codectest::randomBytes(300, 11);
  const std::vector<size_t> lengths = lengthsUpTo(300);
  const ReferenceValues expected = referencesOf(data, lengths);
  codectest::onEveryRoad([&](const codectest::Road&) { expectBothFromEveryAlignment(data, lengths, expected); });
}

// All ones make the sums largest between reductions.
TEST(Checksums, LengthsAroundTheAdlerRunAndTheSumLimitOnEveryRoad) {
  std::vector<size_t> lengths;
  for (size_t centre : {5536u, 5537u, 5552u, 2 * 5536u, 3 * 5536u + 17})
    for (size_t n = centre - 4; n <= centre + 4; ++n) lengths.push_back(n);
  const Bytes ones(3 * 5536 + 64, 0xFF);
  const Bytes random = codectest::randomBytes(3 * 5536 + 64, 12);
  const ReferenceValues onesExpected = referencesOf(ones, lengths);
  const ReferenceValues randomExpected = referencesOf(random, lengths);
  codectest::onEveryRoad([&](const codectest::Road&) {
    expectBothFromEveryAlignment(ones, lengths, onesExpected);
    expectBothFromEveryAlignment(random, lengths, randomExpected);
  });
}

TEST(Checksums, LargeRandomBuffersOnEveryRoad) {
  const Bytes data = codectest::randomBytes(3 * 1024 * 1024 + 77, 13);
  const uint32_t adler = referenceAdler32(1, data.data(), data.size());
  const uint32_t crc = referenceCrc32(0, data.data(), data.size());
  codectest::onEveryRoad([&](const codectest::Road&) {
    for (size_t offset : {0u, 1u, 7u, 15u, 33u, 63u}) {
      const OffsetCopy copy(data, offset);
      EXPECT_EQ(adlerOf(copy.data(), data.size(), 1), adler) << "offset " << offset;
      EXPECT_EQ(crcOf(copy.data(), data.size(), 0), crc) << "offset " << offset;
    }
  });
}

// The folding form's boundaries, for each misalignment m of the source: 32 - m where it begins,
// 64 and 128 where lanes are added and folded, and 8 and 16 beyond each, where the single
// 16-byte and 8-byte steps run.
TEST(Checksums, FoldingFormMatchesTheTableFormAtItsBoundaries) {
  if (!codectest::processorHasPclmul()) GTEST_SKIP() << "no PCLMULQDQ on this processor";
  const Bytes data = codectest::randomBytes(512, 14);
  std::vector<uint32_t> expected;
  for (size_t length = 0; length <= 200; ++length) expected.push_back(referenceCrc32(0xA5A5A5A5u, data.data(), length));
  codectest::onEveryRoad([&](const codectest::Road& road) {
    if (!road.folding) return;
    for (size_t m = 0; m < 16; ++m) {
      const OffsetCopy copy(data, m);
      for (size_t base : {32 - m, size_t{64}, size_t{128}, 64 - m, 96 - m, 128 - m, 160 - m})
        for (size_t extra : {0u, 8u, 16u, 24u})
          for (long delta = -2; delta <= 2; ++delta) {
            const size_t length = base + extra + static_cast<size_t>(delta);
            EXPECT_EQ(crcOf(copy.data(), length, 0xA5A5A5A5u), expected[length]) << "m " << m << ", length " << length;
          }
    }
  });
}

TEST(Checksums, CheckValueOfTheNineDigitsOnEveryRoadAndAlignment) {
  const Bytes digits{'1', '2', '3', '4', '5', '6', '7', '8', '9'};
  codectest::onEveryRoad([&](const codectest::Road&) {
    for (size_t offset = 0; offset < 64; ++offset) {
      const OffsetCopy copy(digits, offset);
      EXPECT_EQ(crcOf(copy.data(), 9, 0), 0xCBF43926u) << "offset " << offset;
    }
  });
}

TEST(Checksums, TiersGiveTheSameValues) {
  const Bytes data = codectest::randomBytes(70000, 15);
  qvtest::expectSameOnEveryTier([&] {
    std::vector<unsigned char> values;
    for (size_t length : {1u, 2u, 30u, 31u, 100u, 5537u, 70000u}) {
      const uint32_t both[2] = {adlerOf(data.data() + 3, length - 3 * (length == 70000), 1),
                                crcOf(data.data() + 3, length - 3 * (length == 70000), 0)};
      values.insert(values.end(), reinterpret_cast<const unsigned char*>(both),
                    reinterpret_cast<const unsigned char*>(both) + sizeof both);
    }
    return values;
  });
}

// --- statuses and edges, in the order of the checks ---

TEST(Adler32Primitive, NullRunningValueIsRefusedFirst) {
  const uint8_t byte = 1;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_EQ(ippsAdler32_8u(nullptr, 5, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(ippsAdler32_8u(&byte, 1, nullptr), ippStsNullPtrErr);
  });
}

TEST(Adler32Primitive, NullSourceSetsOneAndSucceeds) {
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    Ipp32u value = 0xDEADBEEF;
    EXPECT_EQ(ippsAdler32_8u(nullptr, 100, &value), ippStsNoErr);
    EXPECT_EQ(value, 1u);
  });
}

TEST(Adler32Primitive, LengthZeroReducesTheSumsOnly) {
  const uint8_t byte = 1;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    Ipp32u value = 0xFFFFFFFF;  // both sums 65535, above the modulus
    EXPECT_EQ(ippsAdler32_8u(&byte, 0, &value), ippStsNoErr);
    EXPECT_EQ(value, (65535u - 65521u) << 16 | (65535u - 65521u));
    value = 0x12345678;
    EXPECT_EQ(ippsAdler32_8u(&byte, 0, &value), ippStsNoErr);
    EXPECT_EQ(value, 0x12345678u);
  });
}

TEST(Adler32Primitive, LengthsReadAsNegativeDoNoWork) {
  const uint8_t byte = 1;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (Ipp32u length : {0x80000000u, 0xFFFFFFFFu, 0x80000001u}) {
      Ipp32u value = 0xFFF2FFF3;  // s2 65522, s1 65523
      EXPECT_EQ(ippsAdler32_8u(&byte, length, &value), ippStsNoErr);
      EXPECT_EQ(value, 1u << 16 | 2u) << "length " << length;
    }
  });
}

TEST(Adler32Primitive, AgreesAt30And31And5537Bytes) {
  const Bytes data = codectest::randomBytes(5537, 16);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (size_t length : {30u, 31u, 5537u})
      EXPECT_EQ(adlerOf(data.data(), length, 1), referenceAdler32(1, data.data(), length)) << length;
  });
}

TEST(Crc32Primitive, NullPointersAreRefusedFirstAndNothingIsWritten) {
  const uint8_t byte = 1;
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    Ipp32u value = 0x1234;
    EXPECT_EQ(ippsCRC32_8u(nullptr, 1, &value), ippStsNullPtrErr);
    EXPECT_EQ(ippsCRC32_8u(nullptr, 0, &value), ippStsNullPtrErr);  // before the length
    EXPECT_EQ(ippsCRC32_8u(&byte, 1, nullptr), ippStsNullPtrErr);
    EXPECT_EQ(value, 0x1234u);
  });
}

TEST(Crc32Primitive, LengthBelowOneIsRefusedAndTheValueStays) {
  const uint8_t byte = 1;
  codectest::onEveryRoad([&](const codectest::Road&) {
    for (int length : {0, -1, -2147483647 - 1}) {
      Ipp32u value = 0xCAFEF00D;
      EXPECT_EQ(ippsCRC32_8u(&byte, length, &value), ippStsSizeErr) << length;
      EXPECT_EQ(value, 0xCAFEF00Du);
    }
  });
}

TEST(Crc32Primitive, MaskWithoutPclmulqdqKeepsTheValuesOnY8AndE9) {
  const Bytes data = codectest::randomBytes(4096, 17);
  for (const qvtest::Tier& tier : qvtest::allTiers()) {
    if (tier.slot < 3) continue;
    SCOPED_TRACE(tier.name);
    qvtest::ForcedTier forced(tier);
    ippSetCpuFeaturesMask(ippGetEnabledCpuFeatures() & ~Ipp64u{0x800});
    for (size_t offset = 0; offset < 16; ++offset)
      for (size_t length : {1u, 31u, 64u, 200u, 4000u})
        EXPECT_EQ(crcOf(data.data() + offset, length, 0), referenceCrc32(0, data.data() + offset, length));
  }
}

}  // namespace
