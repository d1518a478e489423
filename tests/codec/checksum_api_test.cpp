// The zlib entry points adler32 and crc32, and QVILHash's checksum text.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "codec/checksum_roads.h"
#include "codec/codec_support.h"
#include "qvimage/QVILHash.h"
#include "qvimage/zlib.h"
#include "support/tiers.h"

#ifdef QV_HAVE_LIBDEFLATE
#include <libdeflate.h>
#endif

namespace {

using codectest::Bytes;
using codectest::referenceAdler32;
using codectest::referenceCrc32;

TEST(ZlibAdler32, NullSourceGivesOneOnEveryPath) {
  EXPECT_EQ(adler32(0x12345678, Z_NULL, 0), 1u);
  EXPECT_EQ(adler32(0x12345678, Z_NULL, 1), 1u);
  EXPECT_EQ(adler32(0x12345678, Z_NULL, 20), 1u);
  EXPECT_EQ(adler32(0x12345678, Z_NULL, 5000), 1u);
}

// 1 byte, the short path (up to 32) and the primitive (from 33), from several start values.
TEST(ZlibAdler32, AgreesWithTheStandardOnBothSidesOfThePathChange) {
  const Bytes data = codectest::randomBytes(6000, 21);
  const Bytes ones(6000, 0xFF);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (const Bytes* bytes : {&data, &ones})
      for (uLong start : {1ul, 0ul, 0xFFF0FFF0ul, 0x0001FFF0ul})
        for (uInt length : {0u, 1u, 2u, 15u, 16u, 17u, 31u, 32u, 33u, 34u, 100u, 5552u, 6000u})
          EXPECT_EQ(adler32(start, bytes->data(), length),
                    referenceAdler32(static_cast<uint32_t>(start), bytes->data(), length))
              << "start " << start << ", length " << length;
  });
}

// One byte: a conditional subtraction instead of a division, on both sums.
TEST(ZlibAdler32, OneByteWrapsBothSums) {
  const Bytef byte = 0xFF;
  const uLong start = 65520ul << 16 | 65520ul;  // both sums at their greatest
  EXPECT_EQ(adler32(start, &byte, 1), referenceAdler32(static_cast<uint32_t>(start), &byte, 1));
  EXPECT_EQ(adler32(start, &byte, 1), 253ul << 16 | 254ul);
}

TEST(ZlibAdler32, EmptyInputsKeepTheStartValue) {
  const Bytef byte = 7;
  EXPECT_EQ(adler32(1, &byte, 0), 1u);
  EXPECT_EQ(adler32(0x00200010, &byte, 0), 0x00200010u);
}

TEST(ZlibCrc32, NullSourceGivesZero) {
  EXPECT_EQ(crc32(0x12345678, Z_NULL, 10), 0u);
  EXPECT_EQ(crc32(0, Z_NULL, 0), 0u);
}

TEST(ZlibCrc32, CheckValueOfTheNineDigitsOnEveryRoadAndAlignment) {
  const Bytes digits{'1', '2', '3', '4', '5', '6', '7', '8', '9'};
  codectest::onEveryRoad([&](const codectest::Road&) {
    for (size_t offset = 0; offset < 64; ++offset) {
      const codectest::OffsetCopy copy(digits, offset);
      EXPECT_EQ(crc32(0, copy.data(), 9), 0xCBF43926ul) << "offset " << offset;
    }
  });
}

TEST(ZlibCrc32, AgreesWithTheStandardAndContinues) {
  const Bytes data = codectest::randomBytes(10000, 22);
  codectest::onEveryRoad([&](const codectest::Road&) {
    for (uInt length : {1u, 2u, 9u, 100u, 4096u, 10000u})
      EXPECT_EQ(crc32(0, data.data(), length), referenceCrc32(0, data.data(), length)) << length;
    const uLong front = crc32(0, data.data(), 3333);
    EXPECT_EQ(crc32(front, data.data() + 3333, 10000 - 3333), referenceCrc32(0, data.data(), 10000));
  });
}

// The primitive refuses lengths that read as negative or zero, and the start value comes back.
TEST(ZlibCrc32, RefusedLengthsReturnTheStartValue) {
  const Bytes data = codectest::randomBytes(16, 23);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    EXPECT_EQ(crc32(0xDEADBEEF, data.data(), 0), 0xDEADBEEFul);
    EXPECT_EQ(crc32(0xDEADBEEF, data.data(), 0x80000000u), 0xDEADBEEFul);
    EXPECT_EQ(crc32(0xDEADBEEF, data.data(), 0xFFFFFFFFu), 0xDEADBEEFul);
  });
}

#ifdef QV_HAVE_LIBDEFLATE
TEST(ZlibChecksums, AgreeWithLibdeflate) {
  const Bytes data = codectest::randomBytes(1 << 20, 24);
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (uInt length : {1u, 31u, 33u, 1000u, 65536u, 1u << 20}) {
      EXPECT_EQ(adler32(1, data.data(), length), libdeflate_adler32(1, data.data(), length)) << length;
      EXPECT_EQ(crc32(0, data.data(), length), libdeflate_crc32(0, data.data(), length)) << length;
    }
  });
}
#endif

// The value's bytes as text, lowest first, from a value in the form the primitives return.
std::string lowestByteFirst(uint32_t value) {
  char text[9];
  snprintf(text, sizeof text, "%02x%02x%02x%02x", value & 0xFF, (value >> 8) & 0xFF, (value >> 16) & 0xFF, value >> 24);
  return text;
}

TEST(QVILHashChecksum, UpTo1023BytesIsTheCrcFromZero) {
  QVILHash* hash = QVILHash::sharedInstance();
  ASSERT_EQ(hash, QVILHash::sharedInstance());
  const Bytes digits{'1', '2', '3', '4', '5', '6', '7', '8', '9'};
  EXPECT_EQ(hash->imageLibComputeFastestChecksumForData(digits.data(), 9), "2639f4cb");
  const Bytes data = codectest::randomBytes(1024, 25);
  for (int length : {1, 2, 500, 1023})
    EXPECT_EQ(hash->imageLibComputeFastestChecksumForData(data.data(), length),
              lowestByteFirst(referenceCrc32(0, data.data(), static_cast<size_t>(length))))
        << length;
}

TEST(QVILHashChecksum, From1024BytesIsTheAdlerFromOne) {
  QVILHash* hash = QVILHash::sharedInstance();
  const Bytes data = codectest::randomBytes(100000, 26);
  for (int length : {1024, 1025, 5537, 100000})
    EXPECT_EQ(hash->imageLibComputeFastestChecksumForData(data.data(), length),
              lowestByteFirst(referenceAdler32(1, data.data(), static_cast<size_t>(length))))
        << length;
}

// The CRC refuses a length below 1 and the start value, 0, is written out.
TEST(QVILHashChecksum, LengthBelowOneShowsTheStartValue) {
  QVILHash* hash = QVILHash::sharedInstance();
  const Bytes data = codectest::randomBytes(8, 27);
  EXPECT_EQ(hash->imageLibComputeFastestChecksumForData(data.data(), 0), "00000000");
  EXPECT_EQ(hash->imageLibComputeFastestChecksumForData(data.data(), -5), "00000000");
}

TEST(QVILHashChecksum, SameTextOnEveryTier) {
  const Bytes data = codectest::randomBytes(3000, 28);
  qvtest::expectSameOnEveryTier([&] {
    std::string text = QVILHash::sharedInstance()->imageLibComputeFastestChecksumForData(data.data(), 1000) +
                       QVILHash::sharedInstance()->imageLibComputeFastestChecksumForData(data.data(), 3000);
    return std::vector<unsigned char>(text.begin(), text.end());
  });
}

}  // namespace
