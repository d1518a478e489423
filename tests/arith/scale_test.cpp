// Depth conversion: 8 bits to 16 and back, both 16-to-8 forms, the control word of the accurate
// form, and the order of the argument tests.

#include <gtest/gtest.h>
#include <xmmintrin.h>

#include "arith_reference.h"
#include "qvimage/ippcore.h"
#include "qvimage/ippi_arith.h"
#include "support/tiers.h"

namespace {

using arithtest::Shape;
using qvtest::TestImage;

constexpr unsigned kRoundingField = 0x6000;
constexpr unsigned kDefaultControlWord = 0x1F80;     // all exceptions masked, nearest, no flags
constexpr unsigned kTowardZeroControlWord = 0x7F80;  // the same with rounding toward zero
constexpr unsigned kExceptionFlags = 0x3F;

// One row of all 65536 values, as 16384 pixels.
std::vector<uint16_t> everyWord() {
  std::vector<uint16_t> words(65536);
  for (int i = 0; i < 65536; ++i) words[i] = static_cast<uint16_t>(i);
  return words;
}

std::vector<uint8_t> narrowEveryWord(int hint) {
  const std::vector<uint16_t> words = everyWord();
  std::vector<uint8_t> out(65536);
  const IppiSize row{16384, 1};
  EXPECT_EQ(ippiScale_16u8u_C4R(words.data(), 131072, out.data(), 65536, row, hint), ippStsNoErr);
  return out;
}

// Restores the control word that was in force when it was made.
class SavedControlWord {
 public:
  SavedControlWord() : word_(_mm_getcsr()) {}
  ~SavedControlWord() { _mm_setcsr(word_); }

 private:
  unsigned word_;
};

TEST(Scale16u8uFast, EveryValueFollowsTheFormula) {
  qvtest::expectSameOnEveryTier([] {
    const std::vector<uint8_t> out = narrowEveryWord(ippAlgHintNone);
    for (int x = 0; x < 65536; ++x) EXPECT_EQ(out[x], arithtest::narrowFastReference(static_cast<uint16_t>(x))) << x;
    return out;
  });
}

TEST(Scale16u8uFast, EveryHintButTwoIsTheFastForm) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    const std::vector<uint8_t> none = narrowEveryWord(ippAlgHintNone);
    EXPECT_EQ(narrowEveryWord(ippAlgHintFast), none);
    EXPECT_EQ(narrowEveryWord(-7), none);
    EXPECT_EQ(narrowEveryWord(3), none);
  });
}

TEST(Scale16u8uFast, NamedValues) {
  const std::vector<uint8_t> out = narrowEveryWord(ippAlgHintNone);
  EXPECT_EQ(out[0], 0);
  EXPECT_EQ(out[65535], 255);
  EXPECT_EQ(out[257], 1);
  EXPECT_EQ(out[128], 1);  // although 128 / 257 rounds to 0
  EXPECT_EQ(out[384], 1);
  EXPECT_EQ(out[385], 2);
}

TEST(Scale16u8uFast, DiffersFromRoundedDivisionFor128Values) {
  const std::vector<uint8_t> out = narrowEveryWord(ippAlgHintNone);
  int differences = 0;
  for (int x = 0; x < 65536; ++x) differences += out[x] != (2 * x + 257) / 514;
  EXPECT_EQ(differences, 128);
}

TEST(Scale16u8uAccurate, EveryValueMatchesTheFloatReference) {
  qvtest::expectSameOnEveryTier([] {
    SavedControlWord saved;
    const std::vector<uint8_t> out = narrowEveryWord(ippAlgHintAccurate);
    for (int x = 0; x < 65536; ++x)
      EXPECT_EQ(out[x], arithtest::narrowAccurateReference(static_cast<uint16_t>(x))) << x;
    return out;
  });
}

TEST(Scale16u8uAccurate, RoundsToNearestWhateverTheCallerMode) {
  std::vector<uint8_t> expected(65536);
  for (int x = 0; x < 65536; ++x) expected[x] = arithtest::narrowAccurateReference(static_cast<uint16_t>(x));
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (unsigned mode = 1; mode < 4; ++mode) {
      SavedControlWord saved;
      _mm_setcsr((kDefaultControlWord & ~kRoundingField) | mode << 13);
      const std::vector<uint8_t> out = narrowEveryWord(ippAlgHintAccurate);
      const unsigned after = _mm_getcsr();
      EXPECT_EQ(after, (kDefaultControlWord & ~kRoundingField) | mode << 13) << "restored in full";
      EXPECT_EQ(out, expected) << "mode " << mode;
    }
  });
}

TEST(Scale16u8uAccurate, NearestBeforeTheCallIsNotRestored) {
  // With the earlier field at nearest the word is not written back: the inexact-result flag that
  // the conversion raised stays set.
  SavedControlWord saved;
  _mm_setcsr(kDefaultControlWord);
  narrowEveryWord(ippAlgHintAccurate);
  const unsigned after = _mm_getcsr();
  EXPECT_EQ(after & kRoundingField, 0u);
  EXPECT_EQ(after & ~kExceptionFlags, kDefaultControlWord);
  EXPECT_NE(after & 0x20, 0u) << "precision flag left by the conversion";
}

TEST(Scale16u8uAccurate, RestoredWordClearsTheFlagsOfTheConversion) {
  SavedControlWord saved;
  _mm_setcsr(kTowardZeroControlWord);
  narrowEveryWord(ippAlgHintAccurate);
  EXPECT_EQ(_mm_getcsr(), kTowardZeroControlWord);
}

TEST(Scale16u8uAccurate, EarlyReturnLeavesNearestSet) {
  uint16_t src[4] = {1, 2, 3, 4};
  uint8_t dst[4] = {9, 9, 9, 9};
  struct Case {
    const uint16_t* src;
    int srcStep;
    uint8_t* dst;
    int dstStep;
    IppiSize size;
    IppStatus status;
  };
  const Case cases[] = {{nullptr, 8, dst, 4, {1, 1}, ippStsNullPtrErr},
                        {src, 8, dst, 4, {0, 1}, ippStsSizeErr},
                        {src, 0, dst, 4, {1, 1}, ippStsStepErr}};
  qvtest::onEveryTier([&](const qvtest::Tier&) {
    for (const Case& c : cases) {
      SavedControlWord saved;
      _mm_setcsr(kTowardZeroControlWord);
      EXPECT_EQ(ippiScale_16u8u_C4R(c.src, c.srcStep, c.dst, c.dstStep, c.size, ippAlgHintAccurate), c.status);
      EXPECT_EQ(_mm_getcsr(), kDefaultControlWord) << "nearest, not restored";
      EXPECT_EQ(dst[0], 9);
    }
  });
}

TEST(Scale16u8uFast, LeavesTheControlWordAlone) {
  SavedControlWord saved;
  _mm_setcsr(kTowardZeroControlWord);
  narrowEveryWord(ippAlgHintNone);
  uint8_t dst[4];
  EXPECT_EQ(ippiScale_16u8u_C4R(nullptr, 8, dst, 4, {1, 1}, ippAlgHintNone), ippStsNullPtrErr);
  EXPECT_EQ(_mm_getcsr(), kTowardZeroControlWord);
}

TEST(Scale8u16u, EveryValueTimes257) {
  qvtest::expectSameOnEveryTier([] {
    std::vector<uint8_t> bytes(256);
    for (int i = 0; i < 256; ++i) bytes[i] = static_cast<uint8_t>(i);
    std::vector<uint8_t> out(512);
    EXPECT_EQ(ippiScale_8u16u_C4R(bytes.data(), 256, reinterpret_cast<Ipp16u*>(out.data()), 512, {64, 1}), ippStsNoErr);
    for (int i = 0; i < 256; ++i) EXPECT_EQ(arithtest::wordAt(out.data(), i), arithtest::widenReference(i)) << i;
    EXPECT_EQ(arithtest::wordAt(out.data(), 0), 0);
    EXPECT_EQ(arithtest::wordAt(out.data(), 255), 65535);
    return out;
  });
}

TEST(Scale8u16u, UpAndBackReturnsEveryValue) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    std::vector<uint8_t> bytes(256);
    for (int i = 0; i < 256; ++i) bytes[i] = static_cast<uint8_t>(i);
    std::vector<uint16_t> wide(256);
    std::vector<uint8_t> back(256);
    ASSERT_EQ(ippiScale_8u16u_C4R(bytes.data(), 256, wide.data(), 512, {64, 1}), ippStsNoErr);
    ASSERT_EQ(ippiScale_16u8u_C4R(wide.data(), 512, back.data(), 256, {64, 1}, ippAlgHintNone), ippStsNoErr);
    EXPECT_EQ(back, bytes);
    ASSERT_EQ(ippiScale_16u8u_C4R(wide.data(), 512, back.data(), 256, {64, 1}, ippAlgHintAccurate), ippStsNoErr);
    EXPECT_EQ(back, bytes);
  });
}

TEST(Scale8u16u, RandomImagesWithPaddingAndMisalignment) {
  for (const Shape& shape : arithtest::oddShapes()) {
    SCOPED_TRACE(testing::Message() << "width " << shape.width << " height " << shape.height);
    TestImage src = arithtest::imageOf(shape, 4);
    src.fillRandom(static_cast<uint32_t>(shape.width * 31 + shape.height));
    qvtest::expectSameOnEveryTier([&] {
      TestImage dst(shape.width, shape.height, 8, shape.padding + 2, (shape.offset + 4) & 14);
      EXPECT_EQ(
          ippiScale_8u16u_C4R(src.data(), src.step(), reinterpret_cast<Ipp16u*>(dst.data()), dst.step(), src.size()),
          ippStsNoErr);
      for (int y = 0; y < shape.height; ++y)
        for (int i = 0; i < 4 * shape.width; ++i)
          EXPECT_EQ(arithtest::wordAt(dst.row(y), i), arithtest::widenReference(src.row(y)[i]));
      EXPECT_TRUE(dst.surroundingsIntact());
      return arithtest::bytesOf(dst);
    });
  }
}

void expectNarrowedImages(int hint) {
  SavedControlWord saved;
  for (const Shape& shape : arithtest::oddShapes()) {
    SCOPED_TRACE(testing::Message() << "width " << shape.width << " height " << shape.height);
    TestImage src = arithtest::imageOf(shape, 8);
    src.fillRandom(static_cast<uint32_t>(shape.width * 17 + shape.height));
    qvtest::expectSameOnEveryTier([&] {
      TestImage dst(shape.width, shape.height, 4, shape.padding + 1, shape.offset + 1);
      EXPECT_EQ(ippiScale_16u8u_C4R(reinterpret_cast<const Ipp16u*>(src.data()), src.step(), dst.data(), dst.step(),
                                    src.size(), hint),
                ippStsNoErr);
      for (int y = 0; y < shape.height; ++y)
        for (int i = 0; i < 4 * shape.width; ++i) {
          const uint16_t x = arithtest::wordAt(src.row(y), i);
          const uint8_t expected =
              hint == ippAlgHintAccurate ? arithtest::narrowAccurateReference(x) : arithtest::narrowFastReference(x);
          EXPECT_EQ(dst.row(y)[i], expected);
        }
      EXPECT_TRUE(dst.surroundingsIntact());
      return arithtest::bytesOf(dst);
    });
  }
}

TEST(Scale16u8uFast, RandomImagesWithPaddingAndMisalignment) { expectNarrowedImages(ippAlgHintNone); }

TEST(Scale16u8uAccurate, RandomImagesWithPaddingAndMisalignment) { expectNarrowedImages(ippAlgHintAccurate); }

// Contiguous images, flattened into one row and large enough to stream their stores, with
// destinations a few channels past a 16-byte boundary so that each row kernel first aligns.
TEST(ScaleDepth, LargeContiguousImagesRoundTrip) {
  const int width = 1031, height = 400;  // 1 649 600 channels: above both streaming starts
  const size_t count = 4u * width * height;
  const std::vector<uint8_t> bytes = qvtest::randomBytes(count, 77);
  qvtest::expectSameOnEveryTier([&] {
    TestImage wide(width, height, 8, 0, 6), back(width, height, 4, 0, 5);
    auto* words = reinterpret_cast<Ipp16u*>(wide.data());
    EXPECT_EQ(ippiScale_8u16u_C4R(bytes.data(), 4 * width, words, 8 * width, {width, height}), ippStsNoErr);
    bool widened = true;
    for (size_t i = 0; i < count; ++i) widened &= arithtest::wordAt(wide.data(), static_cast<int>(i)) == bytes[i] * 257;
    EXPECT_TRUE(widened);
    EXPECT_EQ(ippiScale_16u8u_C4R(words, 8 * width, back.data(), 4 * width, {width, height}, ippAlgHintNone),
              ippStsNoErr);
    EXPECT_EQ(back.pixels(), bytes);
    EXPECT_TRUE(wide.surroundingsIntact());
    EXPECT_TRUE(back.surroundingsIntact());
    return back.pixels();
  });
}

// --- argument tests: pointer, then size, then step; nothing written on a failure ---

struct ScaleCase {
  const char* what;
  bool nullSource, nullDestination;
  IppiSize size;
  int srcStep, dstStep;
  IppStatus status;
};

const ScaleCase kScaleCases[] = {
    {"null source before size and step", true, false, {0, 0}, 0, 0, ippStsNullPtrErr},
    {"null destination", false, true, {2, 2}, 64, 64, ippStsNullPtrErr},
    {"zero width before step", false, false, {0, 2}, 0, -1, ippStsSizeErr},
    {"zero height", false, false, {2, 0}, 64, 64, ippStsSizeErr},
    {"negative width", false, false, {-3, 2}, 64, 64, ippStsSizeErr},
    {"zero source step", false, false, {2, 2}, 0, 64, ippStsStepErr},
    {"negative destination step", false, false, {2, 2}, 64, -64, ippStsStepErr},
};

TEST(Scale8u16u, StatusesInOrderWriteNothing) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (const ScaleCase& c : kScaleCases) {
      SCOPED_TRACE(c.what);
      TestImage src(2, 2, 4, 56), dst(2, 2, 8, 48);
      src.fill(7);
      const std::vector<uint8_t> before = dst.allBytes();
      EXPECT_EQ(
          ippiScale_8u16u_C4R(c.nullSource ? nullptr : src.data(), c.srcStep,
                              c.nullDestination ? nullptr : reinterpret_cast<Ipp16u*>(dst.data()), c.dstStep, c.size),
          c.status);
      EXPECT_EQ(dst.allBytes(), before);
    }
  });
}

TEST(Scale16u8u, StatusesInOrderWriteNothing) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    for (int hint : {ippAlgHintNone, ippAlgHintAccurate}) {
      for (const ScaleCase& c : kScaleCases) {
        SCOPED_TRACE(c.what);
        SavedControlWord saved;
        TestImage src(2, 2, 8, 48), dst(2, 2, 4, 56);
        src.fill(7);
        const std::vector<uint8_t> before = dst.allBytes();
        EXPECT_EQ(ippiScale_16u8u_C4R(c.nullSource ? nullptr : reinterpret_cast<const Ipp16u*>(src.data()), c.srcStep,
                                      c.nullDestination ? nullptr : dst.data(), c.dstStep, c.size, hint),
                  c.status);
        EXPECT_EQ(dst.allBytes(), before);
      }
    }
  });
}

}  // namespace
