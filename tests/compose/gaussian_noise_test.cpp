// The Gaussian noise primitives and their public operations against the plain reference.

#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "qvimage/QVILConversion.h"
#include "qvimage/ippi.h"
#include "reference.h"
#include "support/images.h"
#include "support/log_capture.h"
#include "support/tiers.h"

namespace {

using qvtest::TestImage;

template <typename Sample>
std::vector<Sample> samplesOf(const TestImage& image) {
  const std::vector<uint8_t> bytes = image.pixels();
  std::vector<Sample> out(bytes.size() / sizeof(Sample));
  std::memcpy(out.data(), bytes.data(), bytes.size());
  return out;
}

template <typename Sample>
void storeSamples(TestImage& image, const std::vector<Sample>& samples) {
  const auto* bytes = reinterpret_cast<const uint8_t*>(samples.data());
  for (int y = 0; y < image.height(); ++y)
    std::memcpy(image.row(y), bytes + static_cast<size_t>(y) * image.rowBytes(), static_cast<size_t>(image.rowBytes()));
}

// Random float samples in [-0.5, 1.5).
void fillRandomFloats(TestImage& image, uint32_t seed) {
  const std::vector<uint8_t> bytes = qvtest::randomBytes(static_cast<size_t>(image.width()) * image.height() * 4, seed);
  std::vector<float> samples(bytes.size());
  for (size_t i = 0; i < bytes.size(); ++i) samples[i] = static_cast<float>(bytes[i]) / 128.0f - 0.5f;
  storeSamples(image, samples);
}

struct Shape {
  int width, height, padding, offset;
};
const Shape kShapes[] = {{1, 1, 0, 0}, {1, 5, 8, 4}, {7, 3, 4, 8}, {13, 9, 16, 0}, {64, 4, 0, 12}, {3, 1, 0, 0}};

TEST(GaussianNoise, EightBitImagesMatchTheReference) {
  for (const Shape& shape : kShapes) {
    for (int deviation : {0, 1, 17, 255}) {
      for (int mean : {0, 3, 200}) {
        SCOPED_TRACE(::testing::Message()
                     << shape.width << "x" << shape.height << " mean " << mean << " dev " << deviation);
        TestImage source(shape.width, shape.height, 4, shape.padding, shape.offset);
        source.fillRandom(static_cast<uint32_t>(shape.width * 7 + deviation));
        std::vector<uint8_t> expected = source.pixels();
        const uint32_t seed = static_cast<uint32_t>(mean * 1000 + deviation);
        const uint32_t expectedSeed =
            reference::addGaussian8u(expected, shape.width, shape.height, mean, deviation, seed);
        qvtest::expectSameOnEveryTier([&] {
          TestImage image(shape.width, shape.height, 4, shape.padding, shape.offset);
          for (int y = 0; y < shape.height; ++y) std::memcpy(image.row(y), source.row(y), source.rowBytes());
          unsigned int pSeed = seed;
          EXPECT_EQ(ippiAddRandGauss_Direct_8u_AC4IR(image.data(), image.step(), image.size(), static_cast<Ipp8u>(mean),
                                                     static_cast<Ipp8u>(deviation), &pSeed),
                    ippStsNoErr);
          EXPECT_EQ(image.pixels(), expected);
          EXPECT_EQ(pSeed, expectedSeed);
          EXPECT_TRUE(image.surroundingsIntact());
          return image.pixels();
        });
      }
    }
  }
}

TEST(GaussianNoise, SixteenBitImagesMatchTheReference) {
  for (const Shape& shape : kShapes) {
    for (int deviation : {0, 5, 3000, 65535}) {
      SCOPED_TRACE(::testing::Message() << shape.width << "x" << shape.height << " dev " << deviation);
      TestImage source(shape.width, shape.height, 8, shape.padding, shape.offset);
      source.fillRandom(static_cast<uint32_t>(shape.height * 5 + deviation));
      std::vector<uint16_t> expected = samplesOf<uint16_t>(source);
      const uint32_t expectedSeed =
          reference::addGaussian16u(expected, shape.width, shape.height, 30000, deviation, 99);
      qvtest::expectSameOnEveryTier([&] {
        TestImage image(shape.width, shape.height, 8, shape.padding, shape.offset);
        for (int y = 0; y < shape.height; ++y) std::memcpy(image.row(y), source.row(y), source.rowBytes());
        unsigned int pSeed = 99;
        EXPECT_EQ(ippiAddRandGauss_Direct_16u_AC4IR(reinterpret_cast<Ipp16u*>(image.data()), image.step(), image.size(),
                                                    30000, static_cast<Ipp16u>(deviation), &pSeed),
                  ippStsNoErr);
        EXPECT_EQ(samplesOf<uint16_t>(image), expected);
        EXPECT_EQ(pSeed, expectedSeed);
        EXPECT_TRUE(image.surroundingsIntact());
        return image.pixels();
      });
    }
  }
}

TEST(GaussianNoise, FloatImagesMatchTheReference) {
  for (const Shape& shape : kShapes) {
    SCOPED_TRACE(::testing::Message() << shape.width << "x" << shape.height);
    TestImage source(shape.width, shape.height, 16, shape.padding, shape.offset);
    fillRandomFloats(source, static_cast<uint32_t>(shape.width));
    std::vector<float> expected = samplesOf<float>(source);
    const uint32_t expectedSeed = reference::addGaussian32f(expected, shape.width, shape.height, 0.25f, 0.1f, 4242);
    qvtest::expectSameOnEveryTier([&] {
      TestImage image(shape.width, shape.height, 16, shape.padding, shape.offset);
      for (int y = 0; y < shape.height; ++y) std::memcpy(image.row(y), source.row(y), source.rowBytes());
      unsigned int pSeed = 4242;
      EXPECT_EQ(ippiAddRandGauss_Direct_32f_AC4IR(reinterpret_cast<Ipp32f*>(image.data()), image.step(), image.size(),
                                                  0.25f, 0.1f, &pSeed),
                ippStsNoErr);
      const std::vector<float> result = samplesOf<float>(image);
      EXPECT_EQ(std::memcmp(result.data(), expected.data(), result.size() * sizeof(float)), 0);
      EXPECT_EQ(pSeed, expectedSeed);
      EXPECT_TRUE(image.surroundingsIntact());
      return image.pixels();
    });
  }
}

// The fourth channel is never read or written: even a NaN pattern there stays bit for bit.
TEST(GaussianNoise, TheFourthChannelIsUnchangedBitForBit) {
  TestImage image(11, 6, 16, 0, 0);
  fillRandomFloats(image, 5);
  std::vector<float> before = samplesOf<float>(image);
  for (size_t i = 3; i < before.size(); i += 4) {
    const uint32_t nanPattern = 0x7FC01234u + static_cast<uint32_t>(i);
    std::memcpy(&before[i], &nanPattern, 4);
  }
  storeSamples(image, before);
  unsigned int seed = 1;
  ASSERT_EQ(ippiAddRandGauss_Direct_32f_AC4IR(reinterpret_cast<Ipp32f*>(image.data()), image.step(), image.size(),
                                              100.0f, 50.0f, &seed),
            ippStsNoErr);
  const std::vector<float> after = samplesOf<float>(image);
  for (size_t i = 3; i < after.size(); i += 4) EXPECT_EQ(std::memcmp(&after[i], &before[i], 4), 0);

  TestImage bytes(9, 4, 4, 3, 1);
  bytes.fillRandom(6);
  const std::vector<uint8_t> original = bytes.pixels();
  unsigned int seed8 = 2;
  ASSERT_EQ(ippiAddRandGauss_Direct_8u_AC4IR(bytes.data(), bytes.step(), bytes.size(), 255, 255, &seed8), ippStsNoErr);
  const std::vector<uint8_t> changed = bytes.pixels();
  for (size_t i = 3; i < changed.size(); i += 4) EXPECT_EQ(changed[i], original[i]);
}

TEST(GaussianNoise, ZeroDeviationAddsExactlyTheMean) {
  qvtest::onEveryTier([](const qvtest::Tier&) {
    TestImage image(5, 3, 4, 2, 3);
    image.fillRandom(9);
    std::vector<uint8_t> expected = image.pixels();
    for (size_t i = 0; i < expected.size(); ++i)
      if (i % 4 != 3) expected[i] = static_cast<uint8_t>(std::min(expected[i] + 7, 255));
    unsigned int seed = 3;
    ASSERT_EQ(ippiAddRandGauss_Direct_8u_AC4IR(image.data(), image.step(), image.size(), 7, 0, &seed), ippStsNoErr);
    EXPECT_EQ(image.pixels(), expected);
  });
}

// Noise between -1 and 0 truncates to 0 and leaves the sample; a floor would take one off.
TEST(GaussianNoise, TruncationMovesTheNoiseTowardZeroBeforeTheAddition) {
  const int pixels = 200;
  const reference::GaussianStream stream = reference::gaussianValues(8, 0.0, 1.0, 3 * pixels);
  int smallNegatives = 0;
  TestImage image(pixels, 1, 4);
  image.fill(100);
  unsigned int seed = 8;
  ASSERT_EQ(ippiAddRandGauss_Direct_8u_AC4IR(image.data(), image.step(), image.size(), 0, 1, &seed), ippStsNoErr);
  for (int p = 0; p < pixels; ++p) {
    for (int channel = 0; channel < 3; ++channel) {
      const double noise = stream.values[static_cast<size_t>(3 * p + channel)];
      if (noise < 0.0 && noise > -1.0) {
        ++smallNegatives;
        EXPECT_EQ(image.row(0)[4 * p + channel], 100);
      }
    }
  }
  EXPECT_GT(smallNegatives, 10);
}

TEST(GaussianNoise, TheSameSeedGivesTheSameImageAndTheSeedAdvances) {
  TestImage first(21, 5, 4), second(21, 5, 4);
  first.fill(128);
  second.fill(128);
  unsigned int seedOne = 555, seedTwo = 555;
  ASSERT_EQ(ippiAddRandGauss_Direct_8u_AC4IR(first.data(), first.step(), first.size(), 0, 30, &seedOne), ippStsNoErr);
  ASSERT_EQ(ippiAddRandGauss_Direct_8u_AC4IR(second.data(), second.step(), second.size(), 0, 30, &seedTwo),
            ippStsNoErr);
  EXPECT_EQ(first.pixels(), second.pixels());
  EXPECT_EQ(seedOne, seedTwo);
  EXPECT_NE(seedOne, 555u);
}

TEST(GaussianNoise, FloatResultsCanLeaveTheUnitRange) {
  TestImage image(16, 16, 16);
  storeSamples(image, std::vector<float>(16 * 16 * 4, 0.5f));
  unsigned int seed = 10;
  ASSERT_EQ(ippiAddRandGauss_Direct_32f_AC4IR(reinterpret_cast<Ipp32f*>(image.data()), image.step(), image.size(), 0.0f,
                                              1.0f, &seed),
            ippStsNoErr);
  const std::vector<float> result = samplesOf<float>(image);
  bool below = false, above = false;
  for (float v : result) {
    below = below || v < 0.0f;
    above = above || v > 1.0f;
  }
  EXPECT_TRUE(below);
  EXPECT_TRUE(above);
}

struct GaussStatusCase {
  const char* what;
  bool nullImage, nullSeed;
  IppiSize size;
  int step;
  IppStatus expected;
};

TEST(GaussianNoise, StatusesComeInTheOrderOfTheChecksAndNothingIsWritten) {
  const GaussStatusCase cases[] = {
      {"null image before a bad size and step", true, false, {0, 0}, 0, ippStsNullPtrErr},
      {"null seed", false, true, {0, 3}, -1, ippStsNullPtrErr},
      {"zero width before a bad step", false, false, {0, 3}, 0, ippStsSizeErr},
      {"zero height", false, false, {3, 0}, 48, ippStsSizeErr},
      {"negative height", false, false, {3, -2}, 48, ippStsSizeErr},
      {"zero step", false, false, {3, 3}, 0, ippStsStepErr},
      {"negative step", false, false, {3, 3}, -48, ippStsStepErr},
  };
  for (const GaussStatusCase& c : cases) {
    SCOPED_TRACE(c.what);
    qvtest::onEveryTier([&](const qvtest::Tier&) {
      for (int depth : {1, 2, 4}) {
        TestImage image(3, 3, 4 * depth, 4, 0);
        image.fillRandom(12);
        const std::vector<uint8_t> before = image.allBytes();
        unsigned int seed = 77;
        unsigned int* pSeed = c.nullSeed ? nullptr : &seed;
        void* data = c.nullImage ? nullptr : image.data();
        IppStatus status = ippStsNoErr;
        if (depth == 1)
          status = ippiAddRandGauss_Direct_8u_AC4IR(static_cast<Ipp8u*>(data), c.step, c.size, 9, 9, pSeed);
        if (depth == 2)
          status = ippiAddRandGauss_Direct_16u_AC4IR(static_cast<Ipp16u*>(data), c.step, c.size, 9, 9, pSeed);
        if (depth == 4)
          status = ippiAddRandGauss_Direct_32f_AC4IR(static_cast<Ipp32f*>(data), c.step, c.size, 9.0f, 9.0f, pSeed);
        EXPECT_EQ(status, c.expected) << "depth " << depth;
        EXPECT_EQ(image.allBytes(), before);
        EXPECT_EQ(seed, 77u);
      }
    });
  }
}

// --- public operations ---

TEST(GaussianNoisePublic, EightBitCutsMeanAndDeviationToTheirLowByte) {
  struct Case {
    int32_t mean, deviation;
    int passedMean, passedDeviation;
  };
  const Case cases[] = {{200, 0, 200, 0}, {-1, 0, 255, 0}, {256 + 4, 256 + 9, 4, 9}, {-256, 3, 0, 3}};
  for (const Case& c : cases) {
    SCOPED_TRACE(c.mean);
    TestImage image(6, 4, 4, 4, 1);
    image.fill(0);
    std::vector<uint8_t> expected = image.pixels();
    reference::addGaussian8u(expected, 6, 4, c.passedMean, c.passedDeviation, 31);
    vImage_Buffer buffer = image.buffer();
    EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibAddRandomGaussian(&buffer, c.mean, c.deviation, 31));
    EXPECT_EQ(image.pixels(), expected);
  }
}

TEST(GaussianNoisePublic, SixteenBitCutsMeanAndDeviationToTheirLowHalfWord) {
  TestImage image(5, 3, 8);
  image.fill(0);
  std::vector<uint16_t> expected = samplesOf<uint16_t>(image);
  reference::addGaussian16u(expected, 5, 3, 70000 & 0xFFFF, 12, 32);
  vImage_Buffer buffer = image.buffer();
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibAddRandomGaussianInteger(&buffer, 70000, 65536 + 12, 32));
  EXPECT_EQ(samplesOf<uint16_t>(image), expected);

  TestImage minusOne(2, 2, 8);
  minusOne.fill(0);
  vImage_Buffer minusOneBuffer = minusOne.buffer();
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibAddRandomGaussianInteger(&minusOneBuffer, -1, 0, 1));
  const std::vector<uint16_t> saturated = samplesOf<uint16_t>(minusOne);
  for (size_t i = 0; i < saturated.size(); ++i) EXPECT_EQ(saturated[i], i % 4 == 3 ? 0 : 65535);
}

TEST(GaussianNoisePublic, FloatConvertsMeanAndDeviationToFloat) {
  TestImage image(7, 2, 16, 0, 0);
  fillRandomFloats(image, 33);
  std::vector<float> expected = samplesOf<float>(image);
  reference::addGaussian32f(expected, 7, 2, -3.0f, 2.0f, 34);
  vImage_Buffer buffer = image.buffer();
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibAddRandomGaussianFloat(&buffer, -3, 2, 34));
  const std::vector<float> result = samplesOf<float>(image);
  EXPECT_EQ(std::memcmp(result.data(), expected.data(), result.size() * sizeof(float)), 0);
}

// The seed goes by value: two calls with the same seed add the same noise.
TEST(GaussianNoisePublic, TheSeedIsNotHandedBack) {
  TestImage first(8, 8, 4), second(8, 8, 4);
  first.fill(100);
  second.fill(100);
  vImage_Buffer one = first.buffer();
  vImage_Buffer two = second.buffer();
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibAddRandomGaussian(&one, 0, 20, 5));
  EXPECT_TRUE(QVILConversion::sharedInstance()->imageLibAddRandomGaussian(&two, 0, 20, 5));
  EXPECT_EQ(first.pixels(), second.pixels());
}

TEST(GaussianNoisePublic, FailuresAnswerTrueWithoutALogLine) {
  qvtest::LogCapture log;
  TestImage image(4, 4, 16);
  image.fill(1);
  const std::vector<uint8_t> before = image.allBytes();
  vImage_Buffer nullData{nullptr, 4, 4, 64};
  vImage_Buffer empty = image.buffer();
  empty.width = 0;
  vImage_Buffer badStep = image.buffer();
  badStep.rowBytes = 0;
  QVILConversion* conversion = QVILConversion::sharedInstance();
  for (vImage_Buffer* buffer : {&nullData, &empty, &badStep}) {
    EXPECT_TRUE(conversion->imageLibAddRandomGaussian(buffer, 1, 1, 1));
    EXPECT_TRUE(conversion->imageLibAddRandomGaussianInteger(buffer, 1, 1, 1));
    EXPECT_TRUE(conversion->imageLibAddRandomGaussianFloat(buffer, 1, 1, 1));
  }
  EXPECT_EQ(image.allBytes(), before);
  EXPECT_TRUE(log.lines().empty());
}

}  // namespace
