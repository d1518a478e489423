// Tier selection from the features of played-back processors, and forced tiers.

#include <gtest/gtest.h>

#include "core/cpu_state.h"
#include "qvimage/ippcore.h"
#include "support/playback_cpu.h"
#include "support/tiers.h"

namespace {

using qvtest::CpuidAnswer;
using qvtest::PlaybackProcessor;

constexpr uint32_t kSse3 = 1u << 0;
constexpr uint32_t kPclmul = 1u << 1;
constexpr uint32_t kSsse3 = 1u << 9;
constexpr uint32_t kFma = 1u << 12;
constexpr uint32_t kSse41 = 1u << 19;
constexpr uint32_t kSse42 = 1u << 20;
constexpr uint32_t kMovbe = 1u << 22;
constexpr uint32_t kAes = 1u << 25;
constexpr uint32_t kOsxsave = 1u << 27;
constexpr uint32_t kAvx = 1u << 28;
constexpr uint32_t kF16c = 1u << 29;
constexpr uint32_t kRdrand = 1u << 30;
constexpr uint32_t kEdx = PlaybackProcessor::kEdxBase;

// Restores the slot, mask and features after each test.
class TierSelection : public ::testing::Test {
 protected:
  void SetUp() override { forced_ = std::make_unique<qvtest::ForcedTier>(qvtest::allTiers().front()); }
  void TearDown() override { forced_.reset(); }

  struct Outcome {
    IppStatus status;
    int slot;
    int lowPower;
    Ipp64u mask;
  };

  static Outcome initialise() {
    const IppStatus status = ippStaticInit();
    return {status, ippJumpIndexForMergedLibs, ippJumpIndexForMergedLibsLP, ippGetEnabledCpuFeatures()};
  }

 private:
  std::unique_ptr<qvtest::ForcedTier> forced_;
};

TEST_F(TierSelection, FeatureWordHasEveryBitFromItsSource) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3 | kPclmul | kSsse3 | kFma | kSse41 | kSse42 | kMovbe | kAes | kOsxsave | kAvx | kF16c | kRdrand, kEdx)
      .answer(7, 0, {0, (1u << 5) | (1u << 3) | (1u << 8), 0, 0})
      .xcr0(6);
  Ipp64u features = 0;
  ASSERT_EQ(ippGetCpuFeatures(&features, nullptr), ippStsNoErr);
  EXPECT_EQ(features, 0xEFFFu);  // everything but the family-0xB bit
}

TEST_F(TierSelection, FamilyBBitComesFromLeaf20000001) {
  PlaybackProcessor cpu("GenuineIntel", 1);
  cpu.leaf1(0, kEdx, 0xB00).answer(0x20000001, 0, {0, 0, 0, 2});
  Ipp64u features = 0;
  ASSERT_EQ(ippGetCpuFeatures(&features, nullptr), ippStsNoErr);
  EXPECT_EQ(features, 0x1007u);
}

TEST_F(TierSelection, Avx2GroupNeedsFmaAndAllThreeLeaf7Bits) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kFma, kEdx).answer(7, 0, {0, (1u << 5) | (1u << 3), 0, 0});
  Ipp64u features = 0;
  ippGetCpuFeatures(&features, nullptr);
  EXPECT_EQ(features & 0x8000, 0u);
}

TEST_F(TierSelection, FeaturesAreReadOnceUntilTheRecordIsReplaced) {
  PlaybackProcessor cpu("GenuineIntel", 1);
  cpu.leaf1(kSse3, kEdx);
  Ipp64u features = 0;
  ippGetCpuFeatures(&features, nullptr);
  const int reads = cpu.reads();
  ippGetCpuFeatures(&features, nullptr);
  EXPECT_EQ(cpu.reads(), reads);  // the word is kept: no second read
  ippSetCpuFeaturesMask(0x3);
  ownMaskIsFeatures();
  ippGetCpuFeatures(&features, nullptr);
  EXPECT_EQ(features, 0x3u);
  EXPECT_EQ(cpu.reads(), reads);
}

TEST_F(TierSelection, AvxEnabledByTheSystemSelectsSlot4) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3 | kSsse3 | kSse41 | kMovbe | kOsxsave | kAvx | kPclmul | kAes | kRdrand | kF16c, kEdx).xcr0(6);
  const Outcome outcome = initialise();
  EXPECT_EQ(outcome.status, ippStsNoErr);
  EXPECT_EQ(outcome.slot, 4);
  EXPECT_EQ(outcome.lowPower, 0);
  Ipp64u features = 0;
  ippGetCpuFeatures(&features, nullptr);
  EXPECT_EQ(outcome.mask, features & 0x6FDF);
  EXPECT_EQ(outcome.mask & 0x20, 0u);  // MOVBE dropped
}

TEST_F(TierSelection, AvxWithoutSystemSupportFallsToSse41) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3 | kSsse3 | kSse41 | kOsxsave | kAvx | kPclmul | kAes | kRdrand | kF16c, kEdx).xcr0(2);
  const Outcome outcome = initialise();
  Ipp64u features = 0;
  ippGetCpuFeatures(&features, nullptr);
  EXPECT_EQ(features & 0x300, 0x100u);  // AVX without its system bit
  EXPECT_EQ(outcome.slot, 3);
  EXPECT_EQ(outcome.mask, features & 0xCDF);
  EXPECT_EQ(outcome.mask & 0xC00, 0xC00u);  // keeps AES and PCLMULQDQ
  EXPECT_EQ(outcome.status, ippStsNoErr);
}

TEST_F(TierSelection, AvxBitsWithoutOsxsaveNeverAskXgetbv) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3 | kAvx, kEdx).xcr0(6);
  EXPECT_EQ(ipp_is_avx_extension(), 0);
}

TEST_F(TierSelection, Ssse3AndMovbeGiveSlot2WithLowPower) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3 | kSsse3 | kMovbe, kEdx);
  const Outcome outcome = initialise();
  EXPECT_EQ(outcome.slot, 2);
  EXPECT_EQ(outcome.lowPower, 1);
  EXPECT_EQ(outcome.mask, 0x1Fu);  // MOVBE (0x20) is not kept
  EXPECT_EQ(outcome.status, ippStsNoErr);
}

TEST_F(TierSelection, Ssse3WithoutMovbeGivesSlot2) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3 | kSsse3, kEdx);
  const Outcome outcome = initialise();
  EXPECT_EQ(outcome.slot, 2);
  EXPECT_EQ(outcome.lowPower, 0);
  EXPECT_EQ(outcome.mask, 0x1Fu);
}

TEST_F(TierSelection, MovbeWithoutSsse3GoesOnToTheSse3Row) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3 | kMovbe, kEdx);
  const Outcome outcome = initialise();
  EXPECT_EQ(outcome.slot, 1);
  EXPECT_EQ(outcome.lowPower, 0);
  EXPECT_EQ(outcome.mask, 0xFu);
  EXPECT_EQ(outcome.status, ippStsNoErr);
}

TEST_F(TierSelection, BelowSse3GivesSlot0AndStatus36) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(0, kEdx);
  const Outcome outcome = initialise();
  EXPECT_EQ(outcome.slot, 0);
  EXPECT_EQ(outcome.mask, 7u);
  EXPECT_EQ(outcome.status, ippStsNotSupportedCpu);
}

TEST_F(TierSelection, AnotherVendorWithAvxGetsSlot4AndStatus20) {
  PlaybackProcessor cpu("AuthenticAMD", 16);
  cpu.leaf1(kSse3 | kSsse3 | kSse41 | kOsxsave | kAvx, kEdx).xcr0(7);
  const Outcome outcome = initialise();
  EXPECT_EQ(outcome.slot, 4);
  EXPECT_EQ(outcome.status, ippStsNonIntelCpu);
  int size = 123;
  EXPECT_EQ(ippGetMaxCacheSizeB(&size), ippStsNotSupportedCpu);
  EXPECT_EQ(size, 0);
}

TEST_F(TierSelection, AnotherVendorBelowSse3GetsStatus20InPlaceOf36) {
  PlaybackProcessor cpu("AuthenticAMD", 16);
  cpu.leaf1(0, kEdx);
  const Outcome outcome = initialise();
  EXPECT_EQ(outcome.slot, 0);
  EXPECT_EQ(outcome.status, ippStsNonIntelCpu);
}

TEST_F(TierSelection, InitIsStaticInitUnderASecondName) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3 | kSsse3 | kSse41, kEdx);
  EXPECT_EQ(ippInit(), ippStsNoErr);
  EXPECT_EQ(ippJumpIndexForMergedLibs, 3);
  EXPECT_EQ(ippGetEnabledCpuFeatures(), 0x5Fu);
}

TEST_F(TierSelection, GetCpuFeaturesNullPointer) {
  PlaybackProcessor cpu("GenuineIntel", 1);
  EXPECT_EQ(ippGetCpuFeatures(nullptr, nullptr), ippStsNullPtrErr);
}

TEST_F(TierSelection, GetCpuFeaturesFillsLeaf1WithoutTheMagic) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3, kEdx, 0x12345).answer(1, 0, {0x12345, 0x11, kSse3, kEdx}).answer(4, 2, {1, 2, 3, 4});
  Ipp64u features = 0;
  Ipp32u registers[4] = {4, 0, 2, 0};
  ASSERT_EQ(ippGetCpuFeatures(&features, registers), ippStsNoErr);
  EXPECT_EQ(registers[0], 0x12345u);
  EXPECT_EQ(registers[1], 0x11u);
  EXPECT_EQ(registers[2], kSse3);
  EXPECT_EQ(registers[3], kEdx);
}

TEST_F(TierSelection, GetinfoaMagicReadsTheLeafTheCallerNames) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3, kEdx).answer(4, 2, {0xA, 0xB, 0xC, 0xD});
  Ipp64u features = 0x616F666E69746567ULL;  // "getinfoa"
  Ipp32u registers[4] = {4, 99, 2, 99};
  ASSERT_EQ(ippGetCpuFeatures(&features, registers), ippStsNoErr);
  EXPECT_EQ(features, 0xFu);
  EXPECT_EQ(registers[0], 0xAu);
  EXPECT_EQ(registers[1], 0xBu);
  EXPECT_EQ(registers[2], 0xCu);
  EXPECT_EQ(registers[3], 0xDu);
}

TEST_F(TierSelection, GetinfoaMagicIsIgnoredWithoutTheSecondPointer) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3, kEdx);
  Ipp64u features = 0x616F666E69746567ULL;
  ASSERT_EQ(ippGetCpuFeatures(&features, nullptr), ippStsNoErr);
  EXPECT_EQ(features, 0xFu);
}

TEST_F(TierSelection, MaskServices) {
  EXPECT_EQ(ippSetCpuFeaturesMask(0), ippStsNoErr);
  const int slot = ippJumpIndexForMergedLibs;
  EXPECT_EQ(ippGetEnabledCpuFeatures(), 0u);
  EXPECT_EQ(ippJumpIndexForMergedLibs, slot);
  EXPECT_EQ(ownGetFeature(0x800), 0);
  EXPECT_EQ(ownGetFeature(0), 1);
  EXPECT_EQ(ippSetCpuFeaturesMask(0x808), ippStsNoErr);
  EXPECT_EQ(ownGetFeature(0x800), 1);
  EXPECT_EQ(ownGetFeature(0x801), 0);
  EXPECT_EQ(ippIsCpuEnabled(0x46), 1);
  EXPECT_EQ(ippIsCpuEnabled(-7), 1);
  EXPECT_EQ(ippEnableCpu(0x46), 0);
  EXPECT_EQ(ownSetFeatureMask(0x55), 1);
  ownMaskIsFeatures();
  EXPECT_EQ(ownFeatures, 0x55u);
  EXPECT_EQ(ownFeaturesAreValid, 1);
}

struct ForcedRow {
  int code;
  int slot;
  int lowPower;
  Ipp64u mask;
};

class ForcedTierRows : public TierSelection, public ::testing::WithParamInterface<ForcedRow> {};

TEST_P(ForcedTierRows, SetsSlotMaskAndRecordedFeatures) {
  const ForcedRow row = GetParam();
  EXPECT_EQ(ippInitCpu(row.code), ippStsNoErr);
  EXPECT_EQ(ippJumpIndexForMergedLibs, row.slot);
  EXPECT_EQ(ippJumpIndexForMergedLibsLP, row.lowPower);
  EXPECT_EQ(ippGetEnabledCpuFeatures(), row.mask);
  EXPECT_EQ(ownFeatures, row.mask);
  EXPECT_EQ(ownFeaturesAreValid, 1);
}

INSTANTIATE_TEST_SUITE_P(EveryCode, ForcedTierRows,
                         ::testing::Values(ForcedRow{0x00, 1, 0, 0xF}, ForcedRow{0x20, 1, 0, 0xF},
                                           ForcedRow{0x42, 1, 0, 0xF}, ForcedRow{0x21, 2, 0, 0x1F},
                                           ForcedRow{0x22, 2, 0, 0x1F}, ForcedRow{0x43, 2, 0, 0x1F},
                                           ForcedRow{0x24, 2, 1, 0x1F}, ForcedRow{0x23, 3, 0, 0x5F},
                                           ForcedRow{0x44, 3, 0, 0x5F}, ForcedRow{0x25, 3, 0, 0xDF},
                                           ForcedRow{0x45, 3, 0, 0xDF}, ForcedRow{0x26, 3, 0, 0xCDF},
                                           ForcedRow{0x47, 3, 0, 0xCDF}, ForcedRow{0x46, 4, 0, 0xFDF},
                                           ForcedRow{0x49, 4, 0, 0xFDF}, ForcedRow{0x4A, 4, 0, 0xFDF}));

class UnsupportedCodes : public TierSelection, public ::testing::WithParamInterface<int> {};

TEST_P(UnsupportedCodes, Answer36KeepTheTierAndRecordTheMask) {
  ASSERT_EQ(ippInitCpu(0x23), ippStsNoErr);
  ippSetCpuFeaturesMask(0x1234);
  ownFeatures = 0;
  ownFeaturesAreValid = 0;
  EXPECT_EQ(ippInitCpu(GetParam()), ippStsNotSupportedCpu);
  EXPECT_EQ(ippJumpIndexForMergedLibs, 3);
  EXPECT_EQ(ippGetEnabledCpuFeatures(), 0x1234u);
  EXPECT_EQ(ownFeatures, 0x1234u);
  EXPECT_EQ(ownFeaturesAreValid, 1);
}

INSTANTIATE_TEST_SUITE_P(EveryCode, UnsupportedCodes,
                         ::testing::Values(0x01, 0x02, 0x03, 0x04, 0x05, 0x06, 0x07, 0x08, 0x09, 0x0A, 0x0B, 0x40, 0x41,
                                           0x60));

class MismatchedCodes : public TierSelection, public ::testing::WithParamInterface<int> {};

TEST_P(MismatchedCodes, Answer21AndChangeNothing) {
  ASSERT_EQ(ippInitCpu(0x21), ippStsNoErr);
  ippSetCpuFeaturesMask(0x1234);
  ownFeatures = 0;
  ownFeaturesAreValid = 0;
  EXPECT_EQ(ippInitCpu(GetParam()), ippStsCpuMismatch);
  EXPECT_EQ(ippJumpIndexForMergedLibs, 2);
  EXPECT_EQ(ippGetEnabledCpuFeatures(), 0x1234u);
  EXPECT_EQ(ownFeaturesAreValid, 0);
}

INSTANTIATE_TEST_SUITE_P(EveryOtherCode, MismatchedCodes,
                         ::testing::Values(0x0C, 0x1F, 0x27, 0x3F, 0x48, 0x4B, 0x5F, 0x61, -2, 1000));

TEST_F(TierSelection, MinusOneRunsTheFeatureDecision) {
  PlaybackProcessor cpu("GenuineIntel", 7);
  cpu.leaf1(kSse3 | kSsse3, kEdx);
  ASSERT_EQ(ippInitCpu(0x46), ippStsNoErr);
  qvtest::forgetProcessorCaches();
  EXPECT_EQ(ippInitCpu(-1), ippStsNoErr);
  EXPECT_EQ(ippJumpIndexForMergedLibs, 2);
}

TEST_F(TierSelection, ThisMachineSelectsByItsOwnFeatures) {
  qvtest::forgetProcessorCaches();
  const IppStatus status = ippStaticInit();
  Ipp64u features = 0;
  ippGetCpuFeatures(&features, nullptr);
  int expectedSlot = 0;
  if ((features & 0x300) == 0x300)
    expectedSlot = 4;
  else if (features & 0x40)
    expectedSlot = 3;
  else if (features & 0x10)
    expectedSlot = 2;
  else if (features & 0x8)
    expectedSlot = 1;
  EXPECT_EQ(ippJumpIndexForMergedLibs, expectedSlot);
  EXPECT_EQ(status == ippStsNoErr || status == ippStsNonIntelCpu || status == ippStsNotSupportedCpu, true);
  EXPECT_EQ(status == ippStsNonIntelCpu, ipp_is_GenuineIntel() == 0);
}

}  // namespace
